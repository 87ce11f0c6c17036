// SPDX-License-Identifier: GPL-3.0-or-later
// The transport: what each verb tells the engine, and what follows when a song ends.
#include "playback/play_fault.h"
#include "support/core_stand.h"
#include "support/crash_points.h"
#include "support/table.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

class PlayerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nextAndPreviousGoRound()
    {
        CoreStand stand({u"1.mp3"_s, u"2.mp3"_s, u"3.mp3"_s});
        stand.player.playChosen();
        stand.player.previous();
        QCOMPARE(stand.takeCalls(), u""_s); // Nothing is chosen.
        QStringList played;
        for (const auto verb : {&Player::next, &Player::previous, &Player::previous, &Player::next, &Player::next}) {
            (stand.player.*verb)();
            QCOMPARE(stand.takeCalls(), u"FileName "_s + stand.songs.chosenName() + u", Play"_s);
            played += stand.playedTitle;
        }
        QCOMPARE(played.join(u' '), u"1 3 2 3 1"_s);
        CoreStand empty;
        empty.player.next();
        QCOMPARE(empty.takeCalls(), u""_s);
    }

    void pauseAndPlayTakeTurns()
    {
        CoreStand stand({u"1.mp3"_s});
        stand.player.pauseOrResume(); // Without a song there is nothing to pause, but the next call goes on.
        QVERIFY(!stand.player.isPaused() && stand.player.playingPath().isEmpty());
        QCOMPARE(stand.player.PlayStatus, u"Paused"_s);
        stand.player.next();
        stand.player.pauseOrResume();
        QVERIFY(!stand.player.isPaused() && stand.player.isMoving());
        QCOMPARE(stand.player.PlayStatus, u"Playing"_s);
        stand.player.pauseOrResume();
        QVERIFY(stand.player.isPaused() && !stand.player.isMoving());
        stand.player.stop();
        QVERIFY(!stand.player.isPaused());
        stand.player.pauseOrResume(); // A stop does not forget the pause.
        QCOMPARE(stand.takeCalls(), u"Pause, FileName 1.mp3, Play, Play, Pause, Stop, Play"_s);
        QCOMPARE(stand.player.playingPath(), stand.folder.path(u"1.mp3"_s));
    }

    void theEndOfASongStartsWhatIsMarked_data()
    {
        const auto row = table<bool, bool, QString, QString>("repeats", "advances", "calls", "title");
        row("nothing", false, false, u""_s, u"2"_s);
        row("repeat", true, false, u"FileName 4.mp3, Play"_s, u"2"_s);
        row("advance", false, true, u"FileName 3.mp3, Play"_s, u"3"_s);
        // The advance comes first and calls the repeat off, if that has not come so far.
        row("both", true, true, u"FileName 3.mp3, Play"_s, u"3"_s);
    }

    void theEndOfASongStartsWhatIsMarked()
    {
        QFETCH(bool, repeats);
        QFETCH(bool, advances);
        CoreStand stand({u"1.mp3"_s, u"2.mp3"_s, u"3.mp3"_s, u"4.mp3"_s});
        stand.player.RepeatSongName = u"4.mp3"_s;
        stand.songs.row = stand.player.SongIndex = 1;
        stand.player.playChosen();
        stand.takeCalls();
        stand.modes.repeats = repeats;
        stand.modes.advances = advances;
        bool wasDue = true;
        connect(&stand.player, &Player::songEnded, this,
                [&] { wasDue = stand.isDue(u"Timer2"_s) || stand.isDue(u"AutoPlaySong"_s); });
        stand.engine.finishSong();
        QVERIFY(!wasDue && stand.player.playingPath().isEmpty());
        QCOMPARE(stand.takeCalls(), u""_s); // Nothing is opened inside the engine's report.
        QTRY_VERIFY(!stand.isDue(u"Timer2"_s) && !stand.isDue(u"Timer3"_s) && !stand.isDue(u"AutoPlaySong"_s));
        QTEST(stand.takeCalls(), "calls");
        QTEST(stand.playedTitle, "title");
    }

    void whatIsDueCanBeCalledOff()
    {
        CoreStand stand({u"1.mp3"_s});
        stand.modes.repeats = true;
        stand.engine.finishSong();
        stand.modes.clear(); // In time: the first stage asks again.
        QTRY_VERIFY(!stand.isDue(u"Timer2"_s));
        QVERIFY(!stand.isDue(u"Timer3"_s));
        stand.player.setAdvanceDue(true);
        stand.player.setAdvanceDue(false);
        QTest::qWait(1);
        QCOMPARE(stand.takeCalls(), u""_s);
    }

    void theAdvanceGoesOnePastTheEnd()
    {
        CoreStand stand({u"1.mp3"_s, u"2.mp3"_s});
        stand.modes.advances = true;
        stand.player.SongIndex = 1;
        QString order;
        connect(&stand.player, &Player::advanced, this, [&] { order += u"advanced "_s; });
        connect(&stand.songs, &SongFolder::changed, this, [&] { order += u"chosen "_s; });
        stand.engine.finishSong();
        QTRY_COMPARE(stand.player.SongIndex, 2);
        QCOMPARE(stand.takeCalls(), u"FileName , Play"_s);
        QCOMPARE(stand.songs.row, -1);
        stand.engine.finishSong();
        QTRY_COMPARE(stand.player.SongIndex, 0);
        QCOMPARE(stand.takeCalls(), u"FileName 1.mp3, Play"_s);
        QCOMPARE(stand.songs.row, 0);
        QCOMPARE(order, u"advanced chosen advanced chosen "_s);
    }

    void aFailureLeavesWhatIsDue()
    {
        CoreStand stand({u"1.mp3"_s});
        const QSignalSpy failures(&stand.player, &Player::playbackFailed);
        stand.player.next();
        stand.player.setAdvanceDue(true);
        stand.engine.fail(53, u"Not found."_s);
        QCOMPARE(failures.size(), 1);
        QVERIFY(stand.player.playingPath().isEmpty() && stand.isDue(u"AutoPlaySong"_s));
        QCOMPARE(stand.player.openedPath(), stand.folder.path(u"1.mp3"_s));
        QCOMPARE(stand.takeCalls(), u"FileName 1.mp3, Play"_s);
    }

    void aSongThatMayNotBeReadIsToldSo()
    {
        const TestFolder folder;
        const QString song = folder.makeFile(u"a.mp3"_s, "song");
        QVERIFY(QFile::setPermissions(folder.hostPath(), QFile::Permissions(0x7755)));
        QVERIFY(QFile::setPermissions(folder.hostPath() + u"/a.mp3"_s, {}));
        QVERIFY(holdsForOrdinaryUser([&] { return faultBeforePlaying(song) == PlayFault::NoPermission; }));
    }

    void stopAlsoEndsTheModesAndStopSoundDoesNot()
    {
        CoreStand stand({u"1.mp3"_s});
        const QSignalSpy stopped(&stand.player, &Player::stopped);
        stand.modes.repeats = true;
        stand.player.stopSound();
        QVERIFY(stand.modes.repeats && stopped.isEmpty());
        stand.player.stop();
        QVERIFY(!stand.modes.repeats && stopped.size() == 1);
        QCOMPARE(stand.takeCalls(), u"Stop, Stop"_s);
    }

    void loudnessStaysWithinItsBounds()
    {
        CoreStand stand;
        for (const auto &[steps, volume] : {std::pair(1, 0), {-1, -5}, {-457, -2290}, {-1, -2290}, {2, -2280}}) {
            stand.player.changeVolume(steps);
            QCOMPARE(stand.player.volume(), volume);
            QCOMPARE(stand.player.CurrentVolume, std::int16_t(volume));
        }
    }
};

QTEST_GUILESS_MAIN(PlayerTest)
#include "tst_player.moc"
