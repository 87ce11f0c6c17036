// The main window: its settings, its two lists, its keys and tips.
#include "app/mp3_frm.h"
#include "platform/drives.h"
#include "platform/folders.h"
#include "platform/saved_file.h"
#include "settings/setting_paths.h"
#include "settings/settings_store.h"
#include "support/fake_engine.h"
#include "support/test_files.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
struct Player {
    FakeEngine engine;
    PlayModes modes{nullptr};
    Mp3Frm window{engine, modes};
};

QPoint rowPlace(const ListBox &list, int row)
{
    return list.visualRect(list.model()->index(row, 0)).center();
}
} // namespace

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

    void a_first_start_writes_three_settings()
    {
        const TestFolder folder;
        folder.makeFile(u"Song.mp3"_s);
        QVERIFY(QDir::setCurrent(folder.hostPath()));
        Player player;
        player.engine.setVolume(-600);
        player.window.Load();
        QVERIFY(QDir::setCurrent(u"/"_s));
        QCOMPARE(player.window.File1.Path(), folder.path());
        QCOMPARE(readSetting(Setting::Mp3Path), folder.path());
        QCOMPARE(readSetting(Setting::Volume), u"0"_s); // The position slider's.
        QCOMPARE(readSetting(Setting::ShortCut), u"1"_s);
        QCOMPARE(player.window.VScroll1.Value(), -600);
        QCOMPARE(player.window.Label7.Caption(), QString());
    }

    void the_stored_volume_is_taken_or_the_engines()
    {
        for (const auto &stored : {u"-600"_s, u"0"_s, u""_s, u"abc"_s, u"1"_s, u"-2291"_s}) {
            writeSetting(Setting::Volume, stored);
            Player player;
            player.engine.setVolume(-100);
            player.window.Load();
            QCOMPARE(player.window.VScroll1.Value(), stored == u"-600"_s ? -600 : -100);
            QCOMPARE(player.engine.volume(), player.window.VScroll1.Value());
        }
    }

    void a_folder_with_files_is_taken_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("path");
        QTest::newRow("empty") << u""_s << u""_s;
        QTest::newRow("another drive") << u"q:\\Music"_s << u""_s;
        QTest::newRow("without a file") << u"c:\\KIV Mp3"_s << u""_s;
        QTest::newRow("with any file") << u"c:\\KIV Mp3\\Setting Files"_s << u"c:\\KIV Mp3\\Setting Files"_s;
        QTest::newRow("written by hand") << dataFolder() + u"/KIV Mp3/Setting Files/"_s
                                         << u"c:\\KIV Mp3\\Setting Files\\"_s;
    }

    void a_folder_with_files_is_taken()
    {
        QFETCH(QString, stored);
        QFETCH(QString, path);
        writeSetting(Setting::Mp3Path, stored);
        Player player;
        player.window.Load();
        if (path.isEmpty())
            QVERIFY(folderExists(player.window.File1.Path()) && !player.window.File1.Path().startsWith(u"c:"_s));
        else
            QCOMPARE(player.window.File1.Path(), path);
    }

    void exit_keeps_the_settings_and_closing_does_not()
    {
        const TestFolder folder;
        Player player;
        player.window.Load();
        const auto before = loadFile(paths::settingsFile);
        QVERIFY(before);
        player.window.setMusicFolder(folder.path());
        player.window.VScroll1.setValue(-700);
        player.window.HScroll1.setRange(0, 100);
        player.window.HScroll1.setValue(42);
        const QSignalSpy unloaded(&player.window, &Mp3Frm::unloaded);
        player.window.close();
        QCOMPARE(unloaded.size(), 1);
        QCOMPARE(loadFile(paths::settingsFile), before);
        const QString side = QString::fromLatin1(loadFile(paths::sideFile).value_or(QByteArray()));
        QVERIFY(side.contains(u"MP3PATH="_s + folder.path()) && side.contains(u"VOLUME=42"_s));
        QVERIFY(removeFile(paths::sideFile));
        const QSignalSpy leaving(&player.window, &Mp3Frm::leaving);
        player.window.Label6.press();
        QCOMPARE(leaving.size(), 1);
        QCOMPARE(readSetting(Setting::Mp3Path), folder.path());
        QCOMPARE(readSetting(Setting::Volume), u"-700"_s);
        QVERIFY(!FileExists(paths::sideFile));
    }

    void the_display_copy_plays_mp3()
    {
        const TestFolder folder, other;
        folder.makeFile(u"Song.wma"_s);
        other.makeFile(u"Other.mp3"_s);
        writeSetting(Setting::Mp3Path, folder.path());
        Player player;
        player.window.Load();
        player.window.ListSwitch.press();
        player.window.show();
        QVERIFY(player.window.List1.isVisible() && !player.window.File1.isVisible());
        QCOMPARE(player.window.List1.List(0), u"Song"_s);
        player.engine.takeCalls();
        QTest::mouseClick(player.window.List1.viewport(), Qt::LeftButton, {}, rowPlace(player.window.List1, 0));
        QCOMPARE(player.engine.takeCalls(), QStringList({u"FileName "_s + folder.path(u"Song.mp3"_s), u"Play"_s}));
        player.window.setMusicFolder(other.path());
        QCOMPARE(player.window.List1.List(0), u"Song"_s); // Until somebody refreshes it.
        player.window.songs().refresh();
        QCOMPARE(player.window.List1.List(0), u"Other"_s);
    }

    void a_double_click_plays()
    {
        QVERIFY(saveFile(u"c:\\Song.mp3"_s, "song") && saveFile(u"c:\\Air.mp3"_s, "song"));
        Player player;
        player.window.setMusicFolder(u"c:\\"_s);
        player.window.show();
        QTest::mouseClick(player.window.File1.viewport(), Qt::LeftButton, {}, rowPlace(player.window.File1, 1));
        QTest::mouseDClick(player.window.File1.viewport(), Qt::LeftButton, {}, rowPlace(player.window.File1, 1));
        QCOMPARE(player.engine.takeCalls(), QStringList({u"FileName c:\\Song.mp3"_s, u"Play"_s}));
        QCOMPARE(player.window.player().SongIndex, 1);
        QCOMPARE(player.window.Label7.Caption(), u"    Song"_s);
        player.window.Label1.press();
        QCOMPARE(player.engine.takeCalls(), QStringList({u"FileName c:\\\\Song.mp3"_s, u"Play"_s}));
    }

    void keys_play_and_pick()
    {
        QVERIFY(saveFile(u"c:\\Song.mp3"_s, "song"));
        Player player;
        player.window.setMusicFolder(u"c:\\"_s);
        QSignalSpy picked(&player.window, &Mp3Frm::songPicked);
        QTest::keyClick(&player.window.File1, Qt::Key_Return);
        QCOMPARE(player.engine.takeCalls(), QStringList()); // Nothing is chosen.
        player.window.File1.setListIndex(0);
        QTest::keyClick(&player.window.File1, Qt::Key_Enter);
        QCOMPARE(player.engine.takeCalls().size(), 2);
        QTest::keyClick(&player.window.File1, Qt::Key_Space);
        QTest::keyClick(&player.window.File1, Qt::Key_A);
        QCOMPARE(picked.size(), 1);
        QCOMPARE(picked[0][0].toString(), u"Song.mp3"_s);
        QCOMPARE(player.engine.takeCalls(), QStringList());
    }

    void the_menu_is_for_the_song_under_the_press()
    {
        QVERIFY(saveFile(u"c:\\Air.mp3"_s, "song") && saveFile(u"c:\\Song.wma"_s, "song"));
        Player player;
        player.window.setMusicFolder(u"c:\\"_s);
        player.window.songs().rebuildDisplayCopy();
        player.window.show();
        player.window.File1.setListIndex(0);
        const QSignalSpy requests(&player.window, &Mp3Frm::songMenuRequested);
        // The pointer may be elsewhere by now, or the list may have been scrolled under it.
        QTest::mouseClick(player.window.File1.viewport(), Qt::RightButton, {}, rowPlace(player.window.File1, 1));
        QCOMPARE(player.window.songs().pointedSong(), u"Song.wma"_s);
        QVERIFY(player.window.songs().SongMenuOpen);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(&player.window.File1, &key);
        QCOMPARE(player.window.songs().pointedSong(), u"Air.mp3"_s);
        player.window.ListSwitch.press();
        QTest::mouseClick(player.window.List1.viewport(), Qt::RightButton, {}, rowPlace(player.window.List1, 1));
        QCOMPARE(player.window.songs().pointedSong(), u"Song.wma"_s);
        QTest::mouseClick(player.window.List1.viewport(), Qt::RightButton, {}, {5, 170}); // Beside the songs.
        QCOMPARE(player.window.songs().pointedSong(), QString());
        QCOMPARE(requests.size(), 4);
        QCOMPARE(player.engine.takeCalls(), QStringList());
    }

    void tips_tell_what_is_pointed_at()
    {
        const TestFolder folder;
        folder.copySample(u"cbr-128-joint.mp3"_s, u"a.mp3"_s);
        folder.makeFile(u"b.mp3"_s, "no sound");
        Player player;
        FileListBox &list = player.window.File1;
        player.window.setMusicFolder(folder.path());
        const auto tipAt = [&](int row) {
            Q_EMIT list.MouseMove(row, Qt::NoButton);
            return list.toolTip();
        };
        QCOMPARE(tipAt(0), QString());
        QCOMPARE(player.window.songs().pointedSong(), u"a.mp3"_s);
        player.window.setToolTipData(true);
        QCOMPARE(tipAt(1), u"Name=b Time=0:00 Size="_s + Mp3Info::FormatFileSize(8));
        const QString tip = tipAt(0);
        QVERIFY2(tip.startsWith(u"Name=a Time="_s), qPrintable(tip));
        QuickHeader header;
        header.length = u"250 seconds"_s;
        header.size = u"4000000 bytes"_s;
        QCOMPARE(songTip(u"Song.mp3"_s, header), u"Name=Song Time=4:10 Size="_s + Mp3Info::FormatFileSize(4e6));
        player.window.songs().SongMenuOpen = true;
        QCOMPARE(tipAt(1), tip);
        QCOMPARE(player.window.songs().pointedSong(), u"a.mp3"_s);
        player.window.songs().SongMenuOpen = false;
        QCOMPARE(tipAt(-1), QString());
        QCOMPARE(player.window.songs().pointedSong(), QString());
    }
};

QTEST_MAIN(Mp3FrmTest)
#include "tst_mp3_frm.moc"
