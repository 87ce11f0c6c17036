// The transport and its display in the real main window, on an engine without sound.
#include "app/mp3_frm.h"
#include "controls/msg_box.h"
#include "controls/skin_style.h"
#include "support/fake_engine.h"
#include "support/test_files.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
// A main window on a folder of five songs, "1.mp3" to "5.mp3".
struct Player {
    Player()
    {
        for (int song = 1; song <= 5; ++song)
            folder.makeFile(QString::number(song) + u".mp3"_s);
        window.File1.setPath(folder.path());
        window.show();
        engine.takeCalls();
    }

    QStringList playing(const QString &name) const { return {u"FileName "_s + folder.path(name), u"Play"_s}; }

    TestFolder folder;
    FakeEngine engine;
    PlayModes modes{nullptr};
    Mp3Frm window{engine, modes};
};
} // namespace

class PlayerControlTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new SkinStyle); } // Its sliders have no arrows.
    void next_and_previous_go_round()
    {
        Player player;
        player.window.Label1.press();
        player.window.Label3.press();
        QCOMPARE(player.engine.takeCalls(), QStringList());
        player.window.Label4.press();
        QCOMPARE(player.engine.takeCalls(), player.playing(u"1.mp3"_s));
        QCOMPARE(player.window.Label7.Caption(), u"    1"_s);
        player.window.bPrev.press();
        QCOMPARE(player.engine.takeCalls(), player.playing(u"5.mp3"_s));
        QCOMPARE(player.window.player().SongIndex, 4);
        player.window.Label3.press();
        QCOMPARE(player.engine.takeCalls(), player.playing(u"4.mp3"_s));
        player.window.File1.setListIndex(4);
        player.window.bNext.press();
        QCOMPARE(player.engine.takeCalls(), player.playing(u"1.mp3"_s));
        const TestFolder empty;
        player.window.setMusicFolder(empty.path());
        player.window.bNext.press();
        QCOMPARE(player.engine.takeCalls(), QStringList());
    }

    void pause_and_play_take_turns()
    {
        Player player;
        player.window.Label10.press();
        player.window.bPause.press();
        player.window.Label10.press();
        QCOMPARE(player.engine.takeCalls(), QStringList({u"Pause"_s, u"Play"_s, u"Pause"_s}));
        QCOMPARE(player.window.player().PlayStatus, u"Paused"_s);
        player.window.bStop.press();
        player.window.Label10.press(); // A stop does not forget the pause.
        QCOMPARE(player.engine.takeCalls(), QStringList({u"Stop"_s, u"Play"_s}));
    }

    void stop_leaves_nothing_running()
    {
        Player player;
        player.window.Label4.press();
        player.engine.setSong(65, 187);
        QTRY_COMPARE(player.window.HScroll1.Value(), 65);
        for (const SongMenuItem item : {OptionsItem, AutoPlayItem, RepeatSongItem, RepeatAllItem})
            player.modes.songMenu().setChecked(item, true);
        player.window.bStop.press();
        for (const SongMenuItem item : {OptionsItem, AutoPlayItem, RepeatSongItem, RepeatAllItem})
            QCOMPARE(player.modes.isChecked(item), item == OptionsItem);
        QCOMPARE(player.window.Text1.Text(), u"0:00/0:00"_s);
        QCOMPARE(player.window.HScroll1.Value(), 0);
        QCOMPARE(player.window.Label7.Caption(), QString());
        QVERIFY(!player.window.Timer1.Enabled() && !player.window.Timer4.Enabled());
    }

    void the_end_of_a_song_starts_what_is_marked_data()
    {
        QTest::addColumn<int>("mark");
        QTest::addColumn<QString>("song");
        QTest::newRow("nothing") << -1 << QString();
        QTest::newRow("Auto Play repeats") << int(AutoPlayItem) << u"4.mp3"_s;
        QTest::newRow("Repeat Song") << int(RepeatSongItem) << QString();
        QTest::newRow("Repeat All") << int(RepeatAllItem) << QString();
        QTest::newRow("Options advances") << int(OptionsItem) << u"3.mp3"_s;
    }

    void the_end_of_a_song_starts_what_is_marked()
    {
        QFETCH(int, mark);
        QFETCH(QString, song);
        Player player;
        player.window.player().RepeatSongName = u"4.mp3"_s;
        player.window.File1.setListIndex(1);
        player.window.Label1.press();
        if (mark >= 0)
            player.modes.songMenu().setChecked(mark, true);
        player.engine.takeCalls();
        bool wasIdle = false;
        connect(&player.window.player(), &PlayerControl::songEnded, this, [&] {
            wasIdle = player.window.Text1.Text() == u"0:00/0:00"_s && !player.window.Timer1.Enabled() &&
                      !player.window.Timer4.Enabled() && !player.window.Timer2.Enabled();
        });
        player.engine.finishSong();
        QVERIFY(wasIdle);
        QCOMPARE(player.engine.takeCalls(), QStringList()); // Nothing is opened inside the engine's report.
        const auto isBusy = [&] {
            const Mp3Frm &window = player.window;
            return window.Timer2.Enabled() || window.Timer3.Enabled() || window.AutoPlaySong.Enabled();
        };
        QTRY_VERIFY(!isBusy());
        QCOMPARE(player.engine.takeCalls(), song.isEmpty() ? QStringList() : player.playing(song));
        QCOMPARE(player.window.Timer1.Enabled(), !song.isEmpty());
        QCOMPARE(player.window.Timer4.Enabled(), !song.isEmpty());
        QCOMPARE(player.window.Label7.Caption().trimmed(), mark == OptionsItem ? u"3"_s : u"2"_s);
    }

    void a_mode_taken_off_in_time_repeats_nothing()
    {
        Player player;
        player.modes.choose(AutoPlayItem);
        player.engine.finishSong();
        player.modes.clear();
        QTRY_VERIFY(!player.window.Timer2.Enabled());
        QVERIFY(!player.window.Timer3.Enabled());
        QCOMPARE(player.engine.takeCalls(), QStringList());
    }

    void the_advance_goes_one_past_the_end()
    {
        Player player;
        player.modes.songMenu().setChecked(OptionsItem, true);
        player.window.File1.setListIndex(4);
        player.window.songs().SongMenuOpen = true;
        player.engine.finishSong();
        QTRY_COMPARE(player.window.player().SongIndex, 5);
        QCOMPARE(player.engine.takeCalls(), player.playing({}));
        QCOMPARE(player.window.File1.ListIndex(), -1);
        QVERIFY(!player.window.songs().SongMenuOpen);
        player.engine.finishSong();
        QTRY_COMPARE(player.window.player().SongIndex, 0);
        QCOMPARE(player.engine.takeCalls(), player.playing(u"1.mp3"_s));
        QCOMPARE(player.window.File1.ListIndex(), 0);
    }

    void an_error_is_told_once_and_changes_nothing()
    {
        MsgBox::answerFromNowOn({});
        Player player;
        player.window.Label4.press();
        player.engine.fail(53, u"Not found."_s);
        const QList<MsgBox::Shown> shown = MsgBox::takeShown();
        QCOMPARE(shown.size(), 1);
        QCOMPARE(shown[0].title, u"Error - 53"_s);
        QCOMPARE(shown[0].text, u"MediaPlayer1 - Not found."_s);
        QCOMPARE(shown[0].icon, MsgBox::Icon::Critical);
        QVERIFY(player.window.Timer1.Enabled() && player.window.Timer4.Enabled());
        QCOMPARE(player.window.Label7.Caption().trimmed(), u"1"_s);
    }

    void times_are_shown_data()
    {
        QTest::addColumn<double>("position");
        QTest::addColumn<double>("duration");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("max");
        QTest::newRow("over an hour") << 3600.0 << 3725.0 << u"1:00:00/1:02:05"_s << 3600 << 3725;
        QTest::newRow("length not known") << 5.0 << 0.0 << u"0:05/0:00"_s << 0 << 0;
        QTest::newRow("longer than 16 bits") << 35000.0 << 40000.0 << u"9:43:20/11:06:40"_s << 32767 << 32767;
        QTest::newRow("shorter than the song before") << 0.0 << 9.0 << u"0:00/0:09"_s << 0 << 9;
    }

    void times_are_shown()
    {
        QFETCH(double, position);
        QFETCH(double, duration);
        Player player;
        player.window.Label4.press();
        player.engine.setSong(90, 100);
        QTRY_COMPARE(player.window.Text1.Text(), u"1:30/1:40"_s);
        player.engine.takeCalls();
        player.engine.setSong(position, duration);
        QTRY_COMPARE(player.window.Text1.Text(), *static_cast<QString *>(QTest::qData("text", qMetaTypeId<QString>())));
        QTEST(player.window.HScroll1.Value(), "value");
        QTEST(player.window.HScroll1.Max(), "max");
        QCOMPARE(player.engine.takeCalls(), QStringList()); // Showing never seeks.
    }

    void only_the_thumb_seeks()
    {
        Player player;
        player.window.Label4.press();
        player.engine.setSong(50, 100);
        HScrollBar &slider = player.window.HScroll1;
        QTRY_COMPARE(slider.Value(), 50);
        player.engine.takeCalls();
        QTest::mouseClick(&slider, Qt::LeftButton, {}, {2, 8});
        QTRY_COMPARE(slider.Value(), 50); // Put back.
        QCOMPARE(player.engine.takeCalls(), QStringList());
        slider.setSliderDown(true);
        slider.setSliderPosition(100);
        QCOMPARE(player.engine.takeCalls(), QStringList(u"Position 100"_s));
        player.engine.setSong(20, 60);
        QTRY_COMPARE(player.window.Text1.Text(), u"0:20/1:00"_s);
        QCOMPARE(slider.Value(), 100); // Still held.
        slider.setSliderDown(false);
        QTRY_COMPARE(slider.Value(), 20);
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(player.engine.takeCalls(), QStringList(u"Position 25"_s));
    }

    void engine_and_slider_agree_on_the_volume()
    {
        Player player;
        const auto *display = player.window.findChild<PositionDisplay *>();
        player.window.VScroll1.setValue(-600);
        QTest::keyClick(&player.window.VScroll1, Qt::Key_Up);
        QCOMPARE(player.engine.takeCalls(), QStringList({u"Volume -600"_s, u"Volume -595"_s}));
        QCOMPARE(display->CurrentVolume, std::int16_t(-595));
        player.window.Label4.press();
        player.engine.setVolume(-300); // Changed from elsewhere.
        player.engine.setSong(1, 9);
        QTRY_COMPARE(player.window.VScroll1.Value(), -300);
        QCOMPARE(display->CurrentVolume, std::int16_t(-300));
        player.window.VScroll1.setValue(0);
        QCOMPARE(player.engine.volume(), 0);
    }

    void the_title_rotates_while_it_is_seen()
    {
        QCOMPARE(rotatedTitle(u"    Song"_s), u"   Song "_s);
        QCOMPARE(rotatedTitle({}), QString());
        Player player;
        const QSignalSpy names(&player.window, &Mp3Frm::songNameChanged);
        player.window.hide();
        player.window.player().playFile(player.folder.path(u"A Song.mp3"_s), u"A Song"_s);
        QCOMPARE(names.size(), 1);
        QCOMPARE(names[0][0].toString(), u"A Song"_s);
        player.window.Timer2.setEnabled(true);
        QTRY_VERIFY(!player.window.Timer2.Enabled()); // Events run, and the title stands.
        QCOMPARE(player.window.Label7.Caption(), u"    A Song"_s);
        player.window.show();
        QTRY_COMPARE(player.window.Label7.Caption(), u"Song    A "_s);
        QCOMPARE(names.size(), 1);
    }
};

QTEST_MAIN(PlayerControlTest)
#include "tst_player_control.moc"
