// SPDX-License-Identifier: GPL-3.0-or-later
// The options window, the folder browser and the tray icon, as a user meets them.
#include "controls/wear_skin.h"
#include "platform/desktop.h"
#include "platform/folders.h"
#include "settings/frm_options.h"
#include "settings/settings_store.h"
#include "settings/tool_bar.h"
#include "settings/tray_icon.h"
#include "settings/window_rules.h"
#include "support/test_files.h"
#include "support/windows.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace
{
int alphaOf(const QWidget &window)
{
    return qRound(window.windowOpacity() * 255);
}

// A main song list, the options and a folder browser on a folder of songs.
struct Browser {
    Browser()
    {
        for (const QString &name : {u"a.mp3"_s, u"B.MP3"_s, u"c.mp3"_s, u"d.wav"_s})
            folder.makeFile(name);
        folder.makeFolder(u"empty"_s);
    }
    void open(const QString &musicFolder)
    {
        mainFile1.setPath(musicFolder);
        toolBar.Load();
        toolBar.show();
    }
    QString count() { return control<Label>(toolBar, u"Label1"_s).Caption(); }

    TestFolder folder;
    FileListBox mainFile1{nullptr, {u"File1"_s, u"Songs"_s, {}}, u"*.mp3;*.wav;*.wma"_s};
    frmOptions options;
    ToolBar toolBar{mainFile1, options};
    DirListBox &dir1 = control<DirListBox>(toolBar, u"Dir1"_s);
};
} // namespace

class SettingsWindowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ensureSettingsFolder();
        removeFile(paths::settingsFile);
        MsgBox::answerFromNowOn({});
        MsgBox::takeShown();
    }

    void onlyOneIsOn()
    {
        for (const auto &value : {u"1"_s, u"0"_s, u"yes"_s, u"2"_s, u"-1"_s, u""_s, u"65537"_s, u"1x"_s}) {
            WriteIniKey(u"zelkmp3"_s, u"Browse4Dialog"_s, value, paths::settingsFile);
            frmOptions options;
            QVERIFY2(options.browseDialogChosen() == (value == u"1"_s), qPrintable(value));
            QCOMPARE(takeBoxes(), QStringList());
        }
    }

    void storedFlagsActAsClicks()
    {
        writeSetting(Setting::AlphaBlending, u"1"_s);
        writeSetting(Setting::ToolTipData, u"1"_s);
        frmOptions options;
        const QSignalSpy hints(&options, &frmOptions::toolTipDataChanged);
        const QSignalSpy applied(&options, &frmOptions::translucencyApplied);
        QVERIFY(options.translucencyChosen());
        QCOMPARE(alphaOf(options), 128);
        QCOMPARE(hints, QList<QVariantList>{{true}});
        QVERIFY(applied.isEmpty() && !options.isVisible());
    }

    void okStoresAndApplies()
    {
        frmOptions options;
        options.show();
        const QSignalSpy applied(&options, &frmOptions::translucencyApplied);
        auto &check = control<CheckBox>(options, u"Check1"_s);
        QCOMPARE(check.grab().toImage().pixelColor(check.rect().bottomRight()), options.skinColourAt({50, 50}));
        control<CheckBox>(options, u"Check2"_s).setState(1);
        for (const int state : {1, 0}) {
            options.show();
            QTest::keyClick(&check, Qt::Key_Space);
            QCOMPARE(alphaOf(options), state == 1 ? 128 : 255);
            if (state == 1)
                QTest::mouseClick(&control<Label>(options, u"Label1"_s), Qt::LeftButton);
            else
                QTest::keyClick(&check, Qt::Key_Return);
            QVERIFY(!options.isVisible());
            QCOMPARE(readSetting(Setting::AlphaBlending), QString::number(state));
        }
        QCOMPARE(applied, (QList<QVariantList>{{true}, {false}}));
        QCOMPARE(readSetting(Setting::ToolTipData) + readSetting(Setting::Browse4Dialog), u"10"_s);
    }

    void aPickedSkinIsWornAtOnceAndKeptByOk()
    {
        removeFile(paths::chosenSkinFile);
        frmOptions options;
        connect(&options, &frmOptions::skinPicked, this, [](const QString &name) {
            wearSkin(readSkin({name, {}, skinsFolder() + u'/' + name}));
        });
        auto &check = control<CheckBox>(options, u"Check1"_s);
        auto &skins = control<ComboBox>(options, u"cboSkin"_s);
        auto &ok = control<Label>(options, u"Label1"_s);
        options.show();
        ok.press();
        QVERIFY(!FileExists(paths::chosenSkinFile)); // None was picked.
        options.show();
        QTest::keyClick(&skins, Qt::Key_Down);
        QCOMPARE(check.grab().toImage().pixelColor(check.rect().bottomRight()), options.skinColourAt({50, 50}));
        QTest::keyClick(&skins, Qt::Key_Down);
        QCOMPARE(currentSkin().name, u"contrast"_s);
        QVERIFY(!FileExists(paths::chosenSkinFile));
        for (const QString &folder : {paths::userSkins, paths::chosenSkinFile}) // No file can be written there.
            MakeFolder(folder);
        ok.press();
        QVERIFY(MsgBox::takeShown().value(0).text.contains(u"contrast cannot be kept"_s));
        QVERIFY(QDir().rmdir(displayPath(paths::chosenSkinFile)));
        ok.press();
        QCOMPARE(chosenSkin(), u"contrast"_s);
        options.show();
        wearSkin({u"/elsewhere"_s, u"ENAMEL"_s, {u"/elsewhere"_s}, firstSkin().colours, {}});
        QString titles;
        for (int i = 0; i < skins.ListCount(); ++i)
            titles += skins.List(i) + (i == skins.ListIndex() ? u". "_s : u", "_s);
        QCOMPARE(titles, u"Graphite, Enamel (enamel), High Contrast, ENAMEL (/elsewhere). "_s);
        wearSkin(firstSkin());
    }

    void escapeStoresNothing()
    {
        frmOptions options;
        options.show();
        QTest::keyClick(&control<CheckBox>(options, u"Check2"_s), Qt::Key_Space);
        QTest::keyClick(&control<CheckBox>(options, u"Check2"_s), Qt::Key_Escape);
        QVERIFY(!options.isVisible() && !FileExists(paths::settingsFile) && options.toolTipDataChosen());
    }

    void aLinkIsMadeAndToldTwice()
    {
        const QString link = desktopFolder() + u"/KiV Mp3.desktop"_s;
        frmOptions options;
        auto &check = control<CheckBox>(options, u"Check4"_s);
        check.setState(1);
        const auto shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 2);
        QCOMPARE(shown[0].text, desktopFolder() + u"\\\r\n"_s + AppFilePath());
        QVERIFY(shown[1].text.isEmpty() && QFile::exists(link));
        check.setState(0);
        QCOMPARE(takeBoxes(), QStringList());
        QVERIFY(QFile::exists(link));
    }

    void aLinkSeenAtTheStartIsMadeAgain()
    {
        const TestFolder folder;
        folder.makeFolder(u"Desktop"_s);
        folder.makeFile(u"Desktop/KiV Mp3.lnk"_s);
        folder.makeFolder(u"a/b"_s);
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(folder.hostPath() + u"/a/b"_s));
        frmOptions options;
        options.Load();
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(control<CheckBox>(options, u"Check4"_s).State(), 1);
        QCOMPARE(takeBoxes().size(), 2);
    }

    void browsesDrivesAndFolders()
    {
        Browser browser;
        browser.open(browser.folder.path());
        auto &drive = control<DriveListBox>(browser.toolBar, u"Drive1"_s);
        QCOMPARE(browser.count(), u"3 Mp3s"_s);
        QCOMPARE(drive.Drive(), u"z:\\"_s);
        QTest::keyClick(&browser.dir1, Qt::Key_Down);
        QTest::keyClick(&browser.dir1, Qt::Key_Return);
        QCOMPARE(browser.dir1.Path(), browser.folder.path(u"empty"_s));
        QCOMPARE(browser.count(), u"0 Mp3s"_s);
        drive.setCurrentIndex(drive.findData(u"c:\\"_s));
        QCOMPARE(browser.dir1.Path(), u"c:\\"_s);
        QTest::mouseClick(&control<Label>(browser.toolBar, u"Picture1"_s), Qt::LeftButton);
        QCOMPARE(browser.dir1.Path(), DesktopFolderPath());
        QCOMPARE(drive.Drive(), u"z:\\"_s);
        QTest::keyClick(&browser.dir1, Qt::Key_Escape);
        QVERIFY(!browser.toolBar.isVisible());
        QCOMPARE(browser.mainFile1.Path(), browser.folder.path());

        browser.folder.makeFile(u"new.mp3"_s);
        browser.toolBar.show(); // At the music folder again, as it is now.
        QCOMPARE(browser.dir1.Path(), browser.folder.path());
        QCOMPARE(browser.count(), u"4 Mp3s"_s);
        browser.folder.makeFolder(u"empty/inner"_s);
        browser.mainFile1.setPath(browser.folder.path(u"empty\\inner"_s));
        QVERIFY(QDir(browser.folder.hostPath()).rmdir(u"empty/inner"_s));
        browser.toolBar.hide();
        browser.toolBar.show();
        QCOMPARE(browser.dir1.Path(), browser.folder.path(u"empty"_s));
    }

    void confirmingChangesTheMusicFolder()
    {
        Browser browser;
        browser.open(browser.folder.path());
        const QString chosen = browser.folder.path(u"empty"_s);
        QStringList seen;
        connect(&browser.toolBar, &ToolBar::folderConfirmed, this, [&](const QString &folder) {
            seen = {folder, browser.mainFile1.Path()};
        });
        QVERIFY(browser.dir1.setPath(chosen));
        QTest::keyClick(&control<Label>(browser.toolBar, u"Label3"_s), Qt::Key_Space);
        QCOMPARE(seen, QStringList(2, chosen));
        QVERIFY(!browser.toolBar.isVisible());
        QString key = u"Mp3Path"_s;
        QCOMPARE(ReadIniKey(u"ZelkMp3"_s, key, paths::sideFile), chosen);
        QVERIFY(!FileExists(paths::settingsFile));
    }

    void theReelTurnsOnlyWhenSeen()
    {
        Browser browser;
        auto &timer = control<Timer>(browser.toolBar, u"Timer1"_s);
        browser.open(browser.folder.path());
        const QImage before = browser.toolBar.grab().toImage();
        QTRY_VERIFY(browser.toolBar.grab().toImage() != before);
        browser.toolBar.hide();
        const QSignalSpy ticks(&timer, &Timer::tick);
        QVERIFY(!QTest::qWaitFor([&] { return !ticks.isEmpty(); }, 2 * timer.Interval()));
    }

    void tipsAreCutTo64Characters()
    {
        QCOMPARE(trayTip(QString(64, u'x') + u"y"_s), QString(64, u'x'));
        QCOMPARE(trayTip(u"a"_s + QChar() + u"b"_s), u"a"_s);
        QCOMPARE(trayTip(QString(63, u'x') + u"\U0001F3B5"_s), QString(63, u'x'));
        QCOMPARE(trayTip(u"<b>R&amp;B & < x"_s), u"<\u2060b>R&\u2060amp;B & < x"_s);
        QIcon icon;
        TrayIcon tray; // Nothing breaks where there is no desktop.
        tray.AddTrayIcon();
        tray.UpdateTrayIcon(icon, u"Song"_s);
        QVERIFY(!icon.isNull() && !tray.isTrayThere());
    }
};

QTEST_MAIN(SettingsWindowsTest)
#include "tst_settings_windows.moc"
