// The options window, the folder browser, the folder picker and the tray icon, as a user meets them.
#include "controls/msg_box.h"
#include "platform/desktop_places.h"
#include "platform/desktop_shortcut.h"
#include "platform/folders.h"
#include "settings/frm_options.h"
#include "settings/setting_paths.h"
#include "settings/settings_store.h"
#include "settings/tool_bar.h"
#include "settings/tray_icon.h"
#include "support/test_files.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
template<class Control>
Control &control(QWidget &window, const QString &name)
{
    auto *found = window.findChild<Control *>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return *found;
}

int alphaOf(const QWidget &window)
{
    return qRound(window.windowOpacity() * 255);
}

QString iniText(const QString &key)
{
    QString name = key;
    return ReadIniKey(u"ZelkMp3"_s, name, paths::settingsFile);
}
} // namespace

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

    void reads_the_flags_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("chosen");
        QTest::newRow("on") << u"1"_s << true;
        QTest::newRow("off") << u"0"_s << false;
        for (const QString &odd : {u"yes"_s, u"2"_s, u"-1"_s, u""_s, u"65537"_s, u"1x"_s})
            QTest::addRow("'%s'", qPrintable(odd)) << odd << false;
    }

    void reads_the_flags()
    {
        QFETCH(QString, value);
        WriteIniKey(u"zelkmp3"_s, u"Browse4Dialog"_s, value, paths::settingsFile);
        frmOptions options;
        QTEST(options.browseDialogChosen(), "chosen");
        QVERIFY(MsgBox::takeShown().isEmpty());
    }

    void stored_flags_act_as_clicks()
    {
        writeSetting(Setting::AlphaBlending, u"1"_s);
        writeSetting(Setting::ToolTipData, u"1"_s);
        frmOptions options;
        const QSignalSpy hints(&options, &frmOptions::toolTipDataChanged);
        const QSignalSpy applied(&options, &frmOptions::translucencyApplied);
        QVERIFY(options.translucencyChosen());
        QCOMPARE(alphaOf(options), 128);
        QCOMPARE(hints, QList<QVariantList>{{true}});
        QVERIFY(applied.isEmpty());
        QVERIFY(!options.isVisible());
    }

    void ok_stores_and_applies()
    {
        frmOptions options;
        options.show();
        const QSignalSpy applied(&options, &frmOptions::translucencyApplied);
        auto &check = control<CheckBox>(options, u"Check1"_s);
        QCOMPARE(check.grab().toImage().pixelColor(check.rect().bottomRight()), options.skinColourAt({50, 50}));
        for (const int state : {1, 0}) {
            options.show();
            QTest::keyClick(&check, Qt::Key_Space);
            QCOMPARE(alphaOf(options), state == 1 ? 128 : 255);
            QTest::mouseClick(&control<Label>(options, u"Label1"_s), Qt::LeftButton);
            QVERIFY(!options.isVisible());
            QCOMPARE(iniText(u"AlphaBlending"_s), QString::number(state));
        }
        QCOMPARE(applied, (QList<QVariantList>{{true}, {false}}));
        QVERIFY(options.property("layered").toBool());
        QCOMPARE(iniText(u"ToolTipData"_s) + iniText(u"Browse4Dialog"_s), u"00"_s);
    }

    void escape_stores_nothing()
    {
        frmOptions options;
        options.show();
        QTest::keyClick(&control<CheckBox>(options, u"Check2"_s), Qt::Key_Space);
        QTest::keyClick(&control<CheckBox>(options, u"Check2"_s), Qt::Key_Escape);
        QVERIFY(!options.isVisible());
        QVERIFY(!FileExists(paths::settingsFile));
        QVERIFY(options.toolTipDataChosen());
    }

    void link_on_desktop_tells_twice()
    {
        const QString link = desktopFolder() + u"/KiV Mp3.desktop"_s;
        frmOptions options;
        auto &check = control<CheckBox>(options, u"Check4"_s);
        check.setState(1);
        const auto shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 2);
        QCOMPARE(shown[0].text, desktopFolder() + u"\\\r\n"_s + AppFilePath());
        QVERIFY(shown[1].text.isEmpty());
        QVERIFY(QFile::exists(link));
        check.setState(0);
        QVERIFY(MsgBox::takeShown().isEmpty());
        QVERIFY(QFile::exists(link));
    }

    void a_link_seen_at_the_start_is_made_again()
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
        QCOMPARE(MsgBox::takeShown().size(), 2);
    }

    void browses_drives_and_folders()
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
    }

    void opens_the_music_folder_only_when_it_holds_files()
    {
        Browser browser;
        browser.open(browser.folder.path(u"empty"_s));
        QVERIFY(browser.dir1.Path() != browser.folder.path(u"empty"_s));
        QVERIFY(!browser.dir1.Path().isEmpty());
    }

    void confirming_changes_the_music_folder()
    {
        Browser browser;
        browser.open(browser.folder.path());
        QStringList seen;
        connect(&browser.toolBar, &ToolBar::folderConfirmed, this, [&](const QString &folder) {
            seen = {folder, browser.mainFile1.Path()};
        });
        QVERIFY(browser.dir1.setPath(browser.folder.path(u"empty"_s)));
        QTest::keyClick(&control<Label>(browser.toolBar, u"Label3"_s), Qt::Key_Space);
        QCOMPARE(seen, QStringList(2, browser.folder.path(u"empty"_s)));
        QVERIFY(!browser.toolBar.isVisible());
        QString key = u"Mp3Path"_s;
        QCOMPARE(ReadIniKey(u"ZelkMp3"_s, key, paths::sideFile), seen[0]);
        QVERIFY(!FileExists(paths::settingsFile));
    }

    void the_reel_turns_only_when_seen()
    {
        Browser browser;
        auto &timer = control<Timer>(browser.toolBar, u"Timer1"_s);
        timer.setInterval(20);
        const QSignalSpy ticks(&timer, &Timer::tick);
        browser.open(browser.folder.path());
        const QImage before = browser.toolBar.grab().toImage();
        QTRY_VERIFY(!ticks.isEmpty());
        QVERIFY(browser.toolBar.grab().toImage() != before);
        browser.toolBar.hide();
        const qsizetype count = ticks.size();
        QTest::qWait(80);
        QCOMPARE(ticks.size(), count);
    }

    void tips_are_cut_to_64_characters()
    {
        QCOMPARE(trayTip(QString(64, u'x') + u"y"_s), QString(64, u'x'));
        QCOMPARE(trayTip(u"a"_s + QChar() + u"b"_s), u"a"_s);
        QCOMPARE(trayTip(QString(63, u'x') + u"\U0001F3B5"_s), QString(63, u'x'));
        QIcon icon;
        TrayIcon tray; // Nothing breaks where there is no desktop.
        tray.AddTrayIcon();
        tray.UpdateTrayIcon(icon, u"Song"_s);
        QVERIFY(!icon.isNull() && !tray.isTrayThere());
    }
};

QTEST_MAIN(SettingsWindowsTest)
#include "tst_settings_windows.moc"
