// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the player, its end, and what its windows do for each other, by what a user sees.
#include "app/display_texts.h"
#include "app/program.h"
#include "app/splash.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/folders.h"
#include "platform/terminal.h"
#include "playlist/list_file.h"
#include "settings/settings_store.h"
#include "settings/skin_store.h"
#include "support/fake_engine.h"
#include "support/table.h"
#include "support/test_files.h"
#include "support/windows.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDialog>
#include <QDropEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{
const QStringList translucentWindows = {u"Mp3Frm"_s, u"ToolBar"_s, u"FormatMp3"_s, u"Playlist"_s, u"About"_s};

// The player's windows on the screen, in the order of their names.
QString shownWindows()
{
    QStringList shown;
    for (const QWidget *window : QApplication::topLevelWidgets())
        shown +=
            window->isVisible() && !window->objectName().isEmpty() ? QStringList(window->objectName()) : QStringList();
    shown.sort();
    return shown.join(u' ');
}

bool isTranslucent(const QString &window)
{
    return skinWindow(window).windowOpacity() < 0.6;
}

struct Stand {
    Stand() { engine.takeCalls(); }

    FakeEngine engine;
    Program program{engine};
    Mp3Frm &window = program.mainWindow();
    SkinWindow &playList = skinWindow(u"Playlist"_s);
    ListBox &entries = control<ListBox>(playList, u"List1"_s);

    // A command of a list's menu, by its words.
    static void choose(ListBox &list, const QString &command)
    {
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, {5, 5});
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
        const auto found =
            std::find_if(actions.begin(), actions.end(), [&](auto *it) { return it->text() == command; });
        if (found == actions.end())
            return QTest::qFail(qPrintable(u"no command "_s + command), __FILE__, __LINE__);
        (*found)->trigger();
        QCoreApplication::processEvents(); // The command runs when the menu is gone.
    }
    // Drags files over a place of a window and lets go there. What their source is told to have happened to them.
    static Qt::DropAction drop(QWidget &target, const QList<QUrl> &urls, const QPoint &place,
                               Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction)
    {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(place, offered, &data, Qt::LeftButton, {});
        QDragMoveEvent move(place, offered, &data, Qt::LeftButton, {});
        QDropEvent letGo(place, offered, &data, Qt::LeftButton, {});
        for (QDropEvent *event : std::initializer_list<QDropEvent *>{&enter, &move, &letGo}) {
            event->setDropAction(Qt::MoveAction);
            QCoreApplication::sendEvent(&target, event);
            if (!event->isAccepted())
                return Qt::IgnoreAction;
        }
        QCoreApplication::processEvents();
        return letGo.dropAction();
    }

    void chooseInMain(const QString &command) { choose(window.File1, command); }

    // The calls of a song that starts by itself, once the current handler has returned; the folder left out.
    QString takeCalls()
    {
        QCoreApplication::processEvents();
        return engine.takeCalls().join(u", "_s).remove(window.File1.Path() + u'\\');
    }
};
} // namespace

class ProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

    // Each player starts on a folder with two songs, and with nothing else kept.
    void init()
    {
        for (const QString &file : {paths::settingsFile, paths::sideFile, paths::playListFile, paths::playTimesFile})
            removeFile(file);
        ensureSettingsFolder();
        m_folder = std::make_unique<TestFolder>();
        m_folder->makeFile(u"a.mp3"_s, TestFolder::sampleBytes(u"cbr-128-joint.mp3"_s) + QByteArray(1'000'000, '\0'));
        m_folder->makeFile(u"b.mp3"_s);
        writeSetting(Setting::Mp3Path, m_folder->path());
        MsgBox::answerFromNowOn({});
    }
    void cleanup() { QCOMPARE(takeBoxes(), QStringList()); }

    void theBarFillsIn800Steps()
    {
        for (const int width : {372, 1}) {
            QCOMPARE(splashStep(399, width).status, u"Loading Settings..."_s);
            QCOMPARE(splashStep(400, width).status, u"Loading Orvel..."_s);
            QCOMPARE(splashStep(800, width).fraction, 1.0);
        }
    }

    void aSongOfTheCommandLinePlaysAtOnce()
    {
        const TestFolder folder;
        const QString song = folder.makeFile(u"My Song.mp3"_s);
        Stand stand;
        const QObject context;
        bool splashSeen = false;
        QTimer::singleShot(0, &context, [&] { splashSeen = shownWindows().contains(u"Splash"_s); });
        QVERIFY(stand.program.start(commandLineText(folder.hostPath().toUtf8() + "/My Song.mp3")));
        QCOMPARE(stand.engine.takeCalls(), QStringList({u"FileName "_s + song, u"Play"_s}));
        const Mp3Frm &window = stand.program.mainWindow();
        QVERIFY(window.isVisible() && !splashSeen);
        QCOMPARE(window.Label7.Caption(), u"    My Song.mp3"_s);
        QVERIFY(window.Timer1.Enabled() && window.Timer4.Enabled());
        QCOMPARE(window.File1.Path(), folder.path() + u'\\');
        QCOMPARE(window.File1.items().toStringList(), QStringList(u"My Song.mp3"_s));
    }

    void aBareTextLosesItsEnds()
    {
        for (const auto &[text, path] : {std::pair(u"C:\\M\\Song.mp3"_s, u":\\M\\Song.mp"_s), {u"x"_s, u""_s}}) {
            Stand stand;
            QVERIFY(stand.program.start(text));
            QCOMPARE(stand.engine.takeCalls().value(0), u"FileName "_s + path);
        }
    }

    void withoutASongTheSplashComesFirst()
    {
        m_folder->makeFile(u".kiv-mp3-abc123.part"_s); // Of a player that was killed.
        Stand stand;
        const QObject context;
        QTimer timer;
        double filled = 0;
        connect(&timer, &QTimer::timeout, &context, [&] {
            if (shownWindows() == u"Splash"_s)
                filled = control<ProgressBar>(skinWindow(u"Splash"_s), u"ProgBar"_s).fraction();
        });
        timer.start();
        QVERIFY(stand.program.start({}));
        QCOMPARE(filled, 1.0);
        QCOMPARE(shownWindows(), u"Mp3Frm"_s);
        QVERIFY(!stand.program.mainWindow().Timer1.Enabled());
        QTRY_VERIFY(!QFile::exists(m_folder->hostPath() + u"/.kiv-mp3-abc123.part"_s));
    }

    void aSecondPlayerEndsUnseen()
    {
        const Stand first;
        Stand stand;
        QVERIFY(!stand.program.start(u"\"c:\\Song.mp3\""_s));
        QVERIFY(!stand.program.mainWindow().isVisible());
        QCOMPARE(stand.engine.takeCalls(), QStringList());
    }

    void whatWasKeptComesBack()
    {
        for (const auto &[kept, value] : {std::pair(Setting::Volume, u"-600"_s), {Setting::AlphaBlending, u"1"_s}})
            writeSetting(kept, value);
        SaveListFile(paths::playListFile, {u"a"_s, u"b"_s});
        SaveListFile(paths::playTimesFile, {u"1:06"_s, u"0:10"_s});
        Stand stand;
        QCOMPARE(stand.engine.volume(), -600);
        QCOMPARE(stand.window.File1.Path(), m_folder->path());
        QCOMPARE(stand.entries.items().toStringList(), QStringList({u"a"_s, u"b"_s}));
        for (const QString &window : translucentWindows)
            QVERIFY2(isTranslucent(window), qPrintable(window));
        stand.window.show();
        stand.window.Label8.press();
        QCOMPARE(control<DirListBox>(skinWindow(u"ToolBar"_s), u"Dir1"_s).Path(), m_folder->path());
        stand.chooseInMain(u"Song Search"_s);
        QVERIFY(isTranslucent(u"SongSearch"_s));
        stand.window.File1.setListIndex(1);
        stand.chooseInMain(u"Mp3 Name Tools"_s);
        QVERIFY(isTranslucent(u"TagEdit"_s));
    }

    void theOptionsActOnTheWindows()
    {
        Stand stand;
        stand.window.show();
        stand.chooseInMain(u"Options"_s);
        SkinWindow &options = skinWindow(u"frmOptions"_s);
        QCOMPARE(shownWindows(), u"Mp3Frm frmOptions"_s);
        for (const bool on : {true, false}) {
            control<CheckBox>(options, u"Check1"_s).setState(on ? 1 : 0);
            control<Label>(options, u"Label1"_s).press();
            for (const QString &window : translucentWindows)
                QVERIFY2(isTranslucent(window) == on, qPrintable(window));
        }
    }

    void aWindowOpensOverTheMainOneAndOnTheScreen()
    {
        Stand stand;
        stand.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&stand.window)); // A window manager has found a place for it.
        const QRect screen = stand.window.screen()->availableGeometry();
        SkinWindow &options = skinWindow(u"frmOptions"_s);
        stand.window.move(screen.center() - stand.window.rect().center());
        stand.chooseInMain(u"Options"_s);
        QTRY_VERIFY((options.geometry().center() - stand.window.geometry().center()).manhattanLength() <= 2);
        for (const QPoint corner : {screen.topLeft() - QPoint(300, 300), screen.bottomRight()}) {
            options.hide();
            stand.window.move(corner);
            stand.chooseInMain(u"Options"_s);
            QVERIFY(screen.contains(options.geometry()));
        }
    }

    void aWindowInTheMainOnesPlaceGivesItBack_data()
    {
        const auto row = table<QString, QString>("shown", "close");
        row("Mp3 Name Tools", u"FormatMp3 TagEdit"_s, u"Label2"_s);
        row("About...", u"About"_s, u"cmdOk"_s);
    }

    void aWindowInTheMainOnesPlaceGivesItBack()
    {
        QFETCH(QString, shown);
        Stand stand;
        stand.window.show();
        stand.chooseInMain(u"PlayList"_s);
        stand.window.File1.setListIndex(1);
        stand.chooseInMain(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(shownWindows(), shown); // The play list goes and comes with the main window.
        QFETCH(QString, close);
        control<Label>(skinWindow(shown.section(u' ', 0, 0)), close).press();
        QCOMPARE(shownWindows(), u"Mp3Frm Playlist"_s);
    }

    void aboutTellsOfTheSystemAnewEachTime()
    {
        const Stand stand;
        SkinWindow &about = skinWindow(u"About"_s);
        const auto &processes = control<ListBox>(about, u"lstProcesses"_s);
        about.show();
        QVERIFY(!control<Label>(about, u"labSystem"_s).Caption().isEmpty());
        control<Label>(about, u"cmdProcesses"_s).press();
        QVERIFY(processes.isVisible() && processes.items().toStringList().join(u' ').contains(u"tst_program"_s));
        control<Label>(about, u"cmdOk"_s).press();
        about.show();
        QVERIFY(!processes.isVisible());
    }

    void thePlayListLiesUnderTheMainWindow()
    {
        Stand stand;
        stand.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&stand.window));
        stand.window.move(40, 300);
        stand.chooseInMain(u"PlayList"_s);
        QTRY_COMPARE(stand.window.pos(), QPoint(40, 0));
        QCOMPARE(stand.playList.pos(), QPoint(40, stand.window.height() - 2));
        stand.window.hide();
        QCOMPARE(shownWindows(), QString());
        stand.window.show();
        QCOMPARE(shownWindows(), u"Mp3Frm Playlist"_s);
        stand.chooseInMain(u"PlayList"_s);
        QCOMPARE(shownWindows(), u"Mp3Frm"_s);
        QCOMPARE(stand.window.geometry().center().x(), stand.window.screen()->geometry().center().x());
        QVERIFY(stand.window.y() > 0);
        stand.window.hide();
        stand.window.show();
        QCOMPARE(shownWindows(), u"Mp3Frm"_s);
        stand.chooseInMain(u"Song Search"_s);
        QCOMPARE(skinWindow(u"SongSearch"_s).pos(), QPoint(1, 1));
    }

    void onlyAnOpenPlayListTakesSongs()
    {
        Stand stand;
        stand.window.show();
        stand.window.File1.setListIndex(0);
        QTest::keyClick(&stand.window.File1, Qt::Key_Space);
        QCOMPARE(stand.entries.ListCount(), 0);
        stand.chooseInMain(u"PlayList"_s);
        QTest::keyClick(&stand.window.File1, Qt::Key_Space);
        QCOMPARE(stand.entries.items().toStringList(), QStringList(u"a"_s));
        QCOMPARE(control<ListBox>(stand.playList, u"List2"_s).items().toStringList(), QStringList(u"1:02"_s));
        stand.window.File1.setListIndex(-1);
        QTest::keyClick(&stand.window.File1, Qt::Key_Space);
        QCOMPARE(stand.entries.ListCount(), 1);
    }

    void onlyAnOpenPlayListTakesOver()
    {
        SaveListFile(paths::playListFile, {u"a"_s, u"b"_s});
        Stand stand;
        stand.window.show();
        stand.engine.finishSong();
        QCOMPARE(stand.takeCalls(), QString());
        stand.chooseInMain(u"PlayList"_s);
        stand.engine.finishSong();
        QCOMPARE(stand.takeCalls(), u"FileName a.mp3, Play"_s);
        stand.window.hide(); // Away with the main window it is still in use.
        stand.engine.finishSong();
        QCOMPARE(stand.takeCalls(), u"FileName b.mp3, Play"_s);
    }

    void theMenuOfThePlayListActsOnIt()
    {
        const QStringList names(20, u"b"_s);
        SaveListFile(paths::playListFile, names);
        Stand stand;
        stand.window.show();
        stand.chooseInMain(u"PlayList"_s);
        stand.choose(stand.entries, u"Clear"_s);
        QCOMPARE(stand.entries.ListCount(), 0);
        QCOMPARE(LoadListFile(paths::playListFile), names);
        stand.choose(stand.entries, u"Load"_s);
        QCOMPARE(stand.entries.items().toStringList(), names);
        stand.entries.RemoveItem(0);
        stand.choose(stand.entries, u"Save"_s);
        QCOMPARE(LoadListFile(paths::playListFile), names.mid(1));
        stand.choose(stand.entries, u"Random"_s); // Goes on at once,
        QCOMPARE(stand.takeCalls(), u"FileName b.mp3, Play"_s);
        const int first = stand.entries.ListIndex();
        bool isInOrder = true;
        for (int song = 1; song < 6; ++song) {
            stand.engine.finishSong();
            stand.takeCalls();
            isInOrder = isInOrder && stand.entries.ListIndex() == (first + song) % stand.entries.ListCount();
        }
        QVERIFY(!isInOrder);
        stand.entries.setListIndex(0);
        stand.choose(stand.entries, u"Random"_s); // and its end plays nothing.
        QCOMPARE(stand.takeCalls(), QString());
        stand.engine.finishSong();
        QCOMPARE(stand.takeCalls(), u"FileName b.mp3, Play"_s);
        QCOMPARE(stand.entries.ListIndex(), 1);
    }

    void anotherFolderIsTakenEverywhere()
    {
        const TestFolder other;
        other.makeFile(u"New.mp3"_s);
        Stand stand;
        stand.window.show();
        stand.chooseInMain(u"Song Search"_s);
        SkinWindow &search = skinWindow(u"SongSearch"_s), &folders = skinWindow(u"ToolBar"_s);
        control<TextBox>(search, u"Text1"_s).setText(u"a"_s);
        QCOMPARE(control<ListBox>(search, u"List1"_s).ListCount(), 1);
        stand.window.Label8.press();
        QCOMPARE(shownWindows(), u"Mp3Frm SongSearch ToolBar"_s);
        control<DirListBox>(folders, u"Dir1"_s).setPath(other.path());
        control<Label>(folders, u"Label3"_s).press();
        QCOMPARE(stand.window.File1.items().toStringList() + stand.window.List1.items().toStringList(),
                 QStringList({u"New.mp3"_s, u"New.mp3"_s}));
        QCOMPARE(control<TextBox>(search, u"Text1"_s).Text(), QString());
        QCOMPARE(control<ListBox>(search, u"List1"_s).ListCount(), 0);
    }

    void aDroppedSkinIsKeptWornAndChosen()
    {
        const TestFolder other;
        other.makeFolder(u"mine"_s);
        other.makeFile(u"mine/skin.ini"_s, "[Skin]\nName=Mine\n[Colours]\na=\nb=\nc=\nd=\ne=\nf=\ng=\nh=\ni=\n");
        const QString folder = other.hostPath() + u"/mine/"_s, shipped = skinsFolder();
        const QStringList light = {u"About.jpg"_s, u"frmNoTag.jpg"_s, u"Splash.jpg"_s};
        for (const QString &name : light)
            QVERIFY(QFile::copy(shipped + u"/enamel/"_s + name, folder + name));
        for (const QString &name : {u"icon-48.png"_s, u"icon-48@2x.png"_s})
            QVERIFY(QFile::copy(shipped + u"/graphite/icon-48.png"_s, folder + name));
        const QImage key(shipped + u"/graphite/bStop.png"_s);
        QVERIFY(key.scaled(20, 20).copy(key.rect()).save(folder + u"bStop.png"_s));
        const QUrl skin(fileUri(other.path(u"mine"_s)));
        Stand stand;
        stand.window.show();
        stand.chooseInMain(u"Options"_s);
        Q_EMIT control<ComboBox>(skinWindow(u"frmOptions"_s), u"cboSkin"_s).activated(1);
        MsgBox::answerFromNowOn({MsgBox::Answer::Ok, MsgBox::Answer::No, MsgBox::Answer::Yes});
        QCOMPARE(stand.drop(stand.window, {skin, QUrl(fileUri(m_folder->path()))}, {9, 9}), Qt::CopyAction);
        QCOMPARE(currentSkin().title, u"Mine"_s);
        control<Label>(skinWindow(u"frmOptions"_s), u"Label1"_s).press();
        QCOMPARE(chosenSkin(), u"mine"_s);
        QCOMPARE(stand.window.File1.Path(), m_folder->path());
        QVERIFY(!stand.window.bStop.mask().contains(key.rect().center() + QPoint(5, 5)));
        QVERIFY(takeBoxes().value(0).endsWith(u"there is no colour named h\n..."_s));
        const QString told = complaints().join(u' ');
        for (const QString &name : light)
            QVERIFY(told.contains(name + u" leaves"_s));
        QVERIFY(told.contains(u"icon-48@2x.png is 48 x 48"_s));
        for (const QString &name : light + QStringList(u"icon-48@2x.png"_s))
            QVERIFY(QFile::remove(folder + name));
        other.makeFile(u"mine/skin.ini"_s, "[Skin]\nName=Newer");
        QCOMPARE(stand.drop(stand.window, {skin}, {9, 9}), Qt::CopyAction);
        QCOMPARE(readSkin(*findSkin(u"mine"_s)).title, u"Mine"_s);
        const QString question = u"KiV Mp3|There is a skin \"mine\" already. Replace it?"_s;
        QCOMPARE(takeBoxes(), QStringList(question));
        QCOMPARE(stand.drop(stand.window, {skin}, {9, 9}), Qt::CopyAction);
        QCOMPARE(currentSkin().title, u"Newer"_s);
        QCOMPARE(takeBoxes(), QStringList(question));
        other.makeFile(u"a.zip"_s, "no archive");
        QCOMPARE(stand.drop(stand.window, {QUrl(fileUri(other.path(u"a.zip"_s)))}, {9, 9}), Qt::CopyAction);
        QVERIFY(takeBoxes().value(0).contains(u"a.zip"_s));
        QCOMPARE(currentSkin().title, u"Newer"_s);
    }

    void whatIsDroppedPlaysOrIsListed()
    {
        const TestFolder other;
        const QUrl song(fileUri(other.makeFile(u"50% #1.mp3"_s))), before(fileUri(other.makeFile(u"1.mp3"_s)));
        const QUrl folder(fileUri(m_folder->path())), a(fileUri(m_folder->path(u"a.mp3"_s)));
        Stand stand;
        stand.window.show();
        const QUrl web(u"https://example.org/a.mp3"_s);
        for (const auto &[urls, offered] : {std::pair(QList{web}, Qt::DropActions(Qt::CopyAction)),
                                            {{QUrl(fileUri(paths::settingsFile))}, Qt::CopyAction},
                                            {{song}, Qt::MoveAction}}) // It would be gone there.
            QCOMPARE(stand.drop(stand.window, urls, {9, 9}, offered), Qt::IgnoreAction);
        QDialog question;
        question.open();
        QCOMPARE(stand.drop(stand.window, {song}, {9, 9}), Qt::IgnoreAction);
        question.close();
        QCOMPARE(stand.drop(stand.window, {web, song, before}, {9, 9}), Qt::CopyAction);
        QCOMPARE(stand.engine.takeCalls(), QStringList({u"FileName "_s + other.path(u"50% #1.mp3"_s), u"Play"_s}));
        QCOMPARE(stand.window.File1.List(stand.window.File1.ListIndex()), u"50% #1.mp3"_s);
        QCOMPARE(stand.window.player().SongIndex, stand.window.File1.ListIndex());
        QCOMPARE(stand.drop(stand.window, {folder}, {9, 9}, Qt::LinkAction), Qt::LinkAction);
        QCOMPARE(stand.window.File1.items().toStringList(), QStringList({u"a.mp3"_s, u"b.mp3"_s}));
        QCOMPARE(stand.takeCalls(), QString());

        stand.chooseInMain(u"PlayList"_s);
        QCOMPARE(stand.drop(stand.playList, {song}, stand.entries.pos()), Qt::IgnoreAction); // Not in the folder now.
        QCOMPARE(stand.drop(stand.playList, {folder}, stand.entries.pos()), Qt::CopyAction);
        stand.entries.setListIndex(1);
        const QPoint inTheFirstRow = stand.entries.viewport()->mapTo(&stand.playList, rowPlace(stand.entries, 0));
        QCOMPARE(stand.drop(stand.playList, {a, a}, inTheFirstRow + QPoint(0, 4)), Qt::CopyAction);
        QCOMPARE(stand.drop(stand.playList, {a}, stand.playList.rect().bottomLeft()), Qt::CopyAction);
        QCOMPARE(stand.entries.items().toStringList().join(u' '), u"a a a b a"_s);
        QCOMPARE(control<ListBox>(stand.playList, u"List2"_s).items().toStringList().join(u' '),
                 u"1:02 1:02 1:02 0:00 1:02"_s);
        QCOMPARE(stand.entries.ListIndex(), 3); // The chosen song is the one it was.
    }

    void theDesktopsPickerIsAskedInstead()
    {
        writeSetting(Setting::Browse4Dialog, u"1"_s);
        const TestFolder other;
        Stand stand;
        stand.window.show();
        QStringList asked;
        for (const QString &picked : {other.hostPath(), QString()}) { // None is picked the second time.
            QTimer::singleShot(0, this, [&] {
                auto *picker = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
                asked += picker->windowTitle() + u'|' + picker->directory().path();
                picker->setDirectory(picked);
                static_cast<QDialog *>(picker)->done(picked.isEmpty() ? QDialog::Rejected : QDialog::Accepted);
            });
            stand.window.Label8.press();
            QCOMPARE(stand.window.File1.Path(), other.path());
        }
        QCOMPARE(asked,
                 QStringList({u"Select Mp3 Path|"_s + m_folder->hostPath(), u"Select Mp3 Path|"_s + other.hostPath()}));
        QCOMPARE(shownWindows(), u"Mp3Frm"_s);
    }

    void theTrayBringsTheMainWindowBackAlone()
    {
        Stand stand;
        stand.window.show();
        stand.window.Label9.press(); // Without a tray it must not be lost.
        QVERIFY(stand.window.isVisible() && stand.window.isMinimized());
        stand.window.showNormal();
        stand.window.File1.setListIndex(1);
        for (const QString &command : {u"PlayList"_s, u"Song Search"_s, u"Mp3 Name Tools"_s})
            stand.chooseInMain(command);
        skinWindow(u"ToolBar"_s).show();
        QDialog question;
        question.open();
        Q_EMIT stand.program.findChild<TrayIcon *>()->Click(); // What it asks about stays.
        QVERIFY(skinWindow(u"FormatMp3"_s).isVisible());
        question.close();
        Q_EMIT stand.program.findChild<TrayIcon *>()->Click();
        QCOMPARE(shownWindows(), u"Mp3Frm"_s);
        stand.window.hide();
        stand.window.show();
        QCOMPARE(shownWindows(), u"Mp3Frm"_s);
    }

    void everyWayOutEndsTheProgram_data()
    {
        const auto row = table<bool>("keeps");
        row("Exit", true);
        row("closed", false);
        row("by the desktop", true);
    }

    void everyWayOutEndsTheProgram()
    {
        const QString way = QString::fromLatin1(QTest::currentDataTag());
        Stand stand;
        stand.window.show();
        QVERIFY(isOnTheBus());
        stand.chooseInMain(u"PlayList"_s);
        stand.window.File1.setListIndex(0);
        QTest::keyClick(&stand.window.File1, Qt::Key_Space);
        QTimer::singleShot(0, &stand.program, [&] {
            if (way == u"Exit"_s)
                stand.window.Label6.press();
            else if (way == u"closed"_s)
                stand.window.close();
            else
                call(u"org.mpris.MediaPlayer2"_s, u"Quit"_s);
        });
        QTimer::singleShot(5000, &stand.program, [] { QCoreApplication::exit(1); }); // Too late.
        QCOMPARE(QApplication::exec(), 0);
        QFETCH(bool, keeps);
        QCOMPARE(LoadListFile(paths::playListFile), keeps ? QStringList(u"a"_s) : QStringList());
        QCOMPARE(LoadListFile(paths::playTimesFile).size(), keeps ? 1 : 0);
    }

    void theDesktopReachesTheWindows()
    {
        const TestFolder other;
        const QString song = other.makeFile(u"50% #1.mp3"_s, "song");
        Stand stand;
        QVERIFY(!m_bus.interface()->isServiceRegistered(m_service)); // Not before it is on the screen.
        stand.window.show();
        QVERIFY(isOnTheBus());
        stand.window.hide();
        call(u"org.mpris.MediaPlayer2"_s, u"Raise"_s);
        QTRY_COMPARE(shownWindows(), u"Mp3Frm"_s);
        call(u"org.mpris.MediaPlayer2.Player"_s, u"OpenUri"_s, {fileUri(song)});
        QTRY_COMPARE(stand.window.File1.items().toStringList(), QStringList(u"50% #1.mp3"_s));
        QCOMPARE(stand.engine.takeCalls(), QStringList({u"FileName "_s + song, u"Play"_s}));
        QCOMPARE(stand.window.Label7.Caption().trimmed(), u"50% #1.mp3"_s);
        QCOMPARE(stand.window.File1.ListIndex(), 0); // Next and Previous go on from it.
    }

private:
    bool isOnTheBus() const
    {
        return QTest::qWaitFor([this] { return m_bus.interface()->isServiceRegistered(m_service).value(); });
    }

    void call(const QString &interface, const QString &method, const QVariantList &arguments = {})
    {
        QDBusMessage message =
            QDBusMessage::createMethodCall(m_service, u"/org/mpris/MediaPlayer2"_s, interface, method);
        message.setArguments(arguments);
        m_bus.asyncCall(message);
    }

    const QString m_service = u"org.mpris.MediaPlayer2.kiv-mp3"_s;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"widget"_s);
    std::unique_ptr<TestFolder> m_folder;
};

QTEST_MAIN(ProgramTest)
#include "tst_program.moc"
