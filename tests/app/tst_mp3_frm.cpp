// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: its settings, its two lists, its keys and tips.
#include "app/display_texts.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "settings/settings_store.h"
#include "tests/app/main_window_stand.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class Mp3FrmTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each test starts on an empty data folder with no settings but their folder.
    void init()
    {
        QVERIFY(QDir(dataFolder()).removeRecursively());
        ensureSettingsFolder();
    }

    void aFirstStartWritesThreeSettings()
    {
        MainWindowStand stand({u"Song.mp3"_s});
        QFile other(musicFolder() + u"/Other.mp3"_s); // The folder it is started in comes first.
        QVERIFY(other.open(QFile::WriteOnly) && QDir::setCurrent(stand.folder.hostPath()));
        stand.engine.setVolume(-600);
        stand.window.Load();
        QVERIFY(other.remove() && QDir::setCurrent(u"/"_s));
        QCOMPARE(stand.window.File1.Path(), stand.folder.path());
        QCOMPARE(readSetting(Setting::Mp3Path), stand.folder.path());
        QCOMPARE(readSetting(Setting::Volume), u"0"_s); // The position slider's.
        QCOMPARE(readSetting(Setting::ShortCut), u"1"_s);
        QCOMPARE(stand.window.VScroll1.Value(), -600);
        QCOMPARE(stand.window.Label7.Caption(), QString());
    }

    void theStoredVolumeIsTakenOrTheEngines()
    {
        for (const auto &stored : {u"-2290"_s, u"0"_s, u""_s, u"abc"_s, u"1"_s, u"-2291"_s}) {
            writeSetting(Setting::Volume, stored);
            MainWindowStand stand;
            stand.engine.setVolume(-100);
            stand.window.Load();
            QCOMPARE(stand.window.VScroll1.Value(), stored == u"-2290"_s ? -2290 : -100);
            QCOMPARE(stand.engine.volume(), stand.window.VScroll1.Value());
        }
    }

    void aFolderWithFilesIsTaken()
    {
        const QString settings = u"c:\\KIV Mp3\\Setting Files"_s;
        for (const auto &[stored, path] : {
                 std::pair(u""_s, u""_s),
                 {u"q:\\Music"_s, u""_s},                          // Another drive.
                 {u"c:\\KIV Mp3"_s, u""_s},                        // No file in it.
                 {settings, settings},                             // Any file will do.
                 {displayPath(settings) + u'/', settings + u'\\'}, // Written by hand.
             }) {
            writeSetting(Setting::Mp3Path, stored);
            MainWindowStand stand;
            stand.window.Load();
            const QString taken = stand.window.File1.Path();
            QVERIFY2(path.isEmpty() ? folderExists(taken) && !taken.startsWith(u"c:"_s) : taken == path,
                     qPrintable(stored + u": "_s + taken));
        }
    }

    void exitKeepsTheSettingsAndClosingDoesNot()
    {
        MainWindowStand stand;
        stand.window.Load();
        const QByteArray before = loadFile(paths::settingsFile).bytes;
        QVERIFY(!before.isEmpty());
        stand.window.setMusicFolder(stand.folder.path());
        stand.window.VScroll1.setValue(-700);
        stand.window.HScroll1.setRange(0, 100);
        stand.window.HScroll1.setValue(42);
        const QSignalSpy unloaded(&stand.window, &Mp3Frm::unloaded);
        QTest::keyClick(&stand.window, Qt::Key_Escape);
        QCOMPARE(unloaded.size(), 0);
        stand.window.close();
        QCOMPARE(unloaded.size(), 1);
        QCOMPARE(loadFile(paths::settingsFile).bytes, before);
        const QString side = QString::fromLatin1(loadFile(paths::sideFile).bytes);
        QVERIFY(side.contains(u"MP3PATH="_s + stand.folder.path()) && side.contains(u"VOLUME=42"_s));
        QVERIFY(removeFile(paths::sideFile));
        const QSignalSpy leaving(&stand.window, &Mp3Frm::leaving);
        stand.window.Label6.press();
        QCOMPARE(leaving.size(), 1);
        QCOMPARE(readSetting(Setting::Mp3Path), stand.folder.path());
        QCOMPARE(readSetting(Setting::Volume), u"-700"_s);
        QVERIFY(!FileExists(paths::sideFile));
    }

    void theDisplayCopyPlaysMp3()
    {
        const TestFolder other;
        other.makeFile(u"Other.mp3"_s);
        MainWindowStand stand({u"Song.wma"_s});
        ListBox &list = stand.window.List1;
        stand.window.ListSwitch.press();
        stand.window.show();
        QVERIFY(list.isVisible() && !stand.window.File1.isVisible());
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(stand.takeCalls(), u""_s);
        clickRow(list, 0);
        QCOMPARE(stand.takeCalls(), u"FileName Song.mp3, Play"_s);
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(stand.takeCalls(), u"FileName Song.mp3, Play"_s);
        stand.window.setMusicFolder(other.path());
        QCOMPARE(list.List(0), u"Song"_s); // Until somebody refreshes it, or it comes to the front again.
        stand.window.ListSwitch.press();
        stand.window.ListSwitch.press();
        QCOMPARE(list.List(0), u"Other"_s);
        list.setListIndex(0);
        stand.window.ListSwitch.press();
        stand.window.ListSwitch.press();
        QCOMPARE(list.ListIndex(), 0); // Nothing new, nothing lost.
        stand.takeCalls();
    }

    void aDoubleClickPlays()
    {
        QVERIFY(saveFile(u"c:\\Song.mp3"_s, "song") && saveFile(u"c:\\Air.mp3"_s, "song"));
        MainWindowStand stand;
        stand.window.setMusicFolder(u"c:\\"_s);
        stand.window.show();
        clickRow(stand.window.File1, 1);
        doubleClickRow(stand.window.File1, 1);
        QCOMPARE(stand.takeCalls(), u"FileName c:\\Song.mp3, Play"_s);
        QCOMPARE(stand.window.player().SongIndex, 1);
        QCOMPARE(stand.window.Label7.Caption(), u"    Song"_s);
        stand.window.Label1.press();
        QCOMPARE(stand.takeCalls(), u"FileName c:\\\\Song.mp3, Play"_s);
    }

    void theSongThatPlaysIsMarkedWhateverIsChosen()
    {
        MainWindowStand stand({u"a.mp3"_s, u"B.MP3"_s, u"c.wav"_s});
        Mp3Frm &window = stand.window;
        window.show();
        const auto marks = [&] { return marksOf(window.File1); };
        const auto picture = [&] { return window.File1.viewport()->grab().toImage(); };
        const QImage unmarked = picture(), restingKey = window.bPause.grab().toImage();
        QCOMPARE(marks(), u"- - -"_s);
        window.player().open(stand.folder.path(u"B.mp3"_s)); // As the names open it.
        QCOMPARE(marks(), u"- Playing -"_s);
        QCOMPARE(marksOf(window.List1), marks());
        QVERIFY(picture() != unmarked && !window.bPause.isOn());
        window.player().pauseOrResume();
        QCOMPARE(marks(), u"- Paused -"_s);
        QVERIFY(window.bPause.isOn() && window.bPause.grab().toImage() != restingKey);
        window.player().play(stand.folder.path(u"c.wav"_s), {}); // Ends the pause too.
        QCOMPARE(marks(), u"- - Playing"_s);
        QVERIFY(!window.bPause.isOn());
        const TestFolder other;
        other.makeFile(u"c.wav"_s);
        window.setMusicFolder(other.path());
        QCOMPARE(marks(), u"-"_s);
        window.setMusicFolder(stand.folder.path() + u'\\');
        QVERIFY(QFile::rename(stand.folder.hostPath() + u"/c.wav"_s, stand.folder.hostPath() + u"/0.wav"_s));
        window.player().noteRename(stand.folder.path(u"0.wav"_s));
        window.songs().refresh();
        QCOMPARE(marks(), u"Playing - -"_s);
        stand.engine.finishSong();
        QCOMPARE(marks(), u"- - -"_s);
        stand.takeCalls();
    }

    void keysPlayAndPick()
    {
        MainWindowStand stand({u"Song.mp3"_s});
        FileListBox &songs = stand.window.File1;
        const QSignalSpy picked(&stand.window, &Mp3Frm::songPicked);
        QTest::keyClick(&songs, Qt::Key_Return);
        QCOMPARE(stand.takeCalls(), u""_s); // Nothing is chosen.
        songs.setListIndex(0);
        QTest::keyClick(&songs, Qt::Key_Enter);
        QTest::keyClick(&songs, Qt::Key_Space);
        QTest::keyClick(&songs, Qt::Key_A);
        QCOMPARE(stand.takeCalls(), u"FileName Song.mp3, Play"_s);
        QCOMPARE(picked, QList<QVariantList>{{u"Song.mp3"_s}});
    }

    void theMenuIsForTheSongUnderThePress()
    {
        MainWindowStand stand({u"Air.mp3"_s, u"Song.wma"_s});
        const SongList &songs = stand.window.songs();
        stand.window.show();
        stand.window.File1.setListIndex(0);
        const QSignalSpy requests(&stand.window, &Mp3Frm::songMenuRequested);
        // The pointer may be elsewhere by now, or the list may have been scrolled under it.
        clickRow(stand.window.File1, 1, Qt::RightButton);
        QCOMPARE(songs.pointedSong(), u"Song.wma"_s);
        QVERIFY(songs.SongMenuOpen);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(&stand.window.File1, &key);
        QCOMPARE(songs.pointedSong(), u"Air.mp3"_s);
        stand.window.ListSwitch.press();
        clickRow(stand.window.List1, 1, Qt::RightButton);
        QCOMPARE(songs.pointedSong(), u"Song.wma"_s);
        QTest::mouseClick(stand.window.List1.viewport(), Qt::RightButton, {}, {5, 170}); // Beside the songs.
        QCOMPARE(songs.pointedSong(), QString());
        stand.window.List1.setListIndex(1);
        stand.takeCalls();
        QCoreApplication::sendEvent(&stand.window, &key); // For the list in front.
        QCOMPARE(songs.pointedSong(), u"Song.wma"_s);
        QCOMPARE(requests.size(), 5);
        QCOMPARE(stand.takeCalls(), u""_s);
    }

    void tipsTellWhatIsPointedAt()
    {
        MainWindowStand stand({u"a.mp3"_s, u"b.mp3"_s});
        stand.folder.makeFile(u"b.mp3"_s, "no sound");
        FileListBox &list = stand.window.File1;
        SongList &songs = stand.window.songs();
        const auto tipAt = [&](int row) {
            Q_EMIT list.MouseMove(row, Qt::NoButton);
            return tipOf(list, row);
        };
        stand.window.show();
        QCOMPARE(tipAt(1), QString());
        QCOMPARE(songs.pointedSong(), u"b.mp3"_s);
        control<CheckBox>(stand.options, u"Check2"_s).setState(1);
        QCOMPARE(tipOf(list, -1), u"Click Song To Start Display Data."_s);
        QCOMPARE(tipAt(1), u"Name=b Time=0:00 Size="_s + Mp3Info::FormatFileSize(8)); // Pointed at already.
        QCOMPARE(list.toolTip(), QString());                                          // No hint any more.
        QuickHeader header;
        header.length = u"250 seconds"_s;
        header.size = u"4000000 bytes"_s;
        QCOMPARE(songTip(u"Song.mp3"_s, header), u"Name=Song Time=4:10 Size="_s + Mp3Info::FormatFileSize(4e6));
        songs.SongMenuOpen = true;
        tipAt(0);
        QCOMPARE(songs.pointedSong(), u"b.mp3"_s);
        songs.SongMenuOpen = false;
        tipAt(-1);
        QCOMPARE(songs.pointedSong(), QString());
        control<CheckBox>(stand.options, u"Check2"_s).setState(0);
        tipAt(1);
        QTRY_VERIFY(!QToolTip::isVisible());
    }
};

QTEST_MAIN(Mp3FrmTest)
#include "tst_mp3_frm.moc"
