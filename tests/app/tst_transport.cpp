// SPDX-License-Identifier: GPL-3.0-or-later
// The transport and its display in the real main window, on an engine without sound.
#include "app/display_texts.h"
#include "controls/skin_style.h"
#include "support/player_stand.h"

#include <QApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class TransportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new SkinStyle); } // Its sliders have no arrows.

    void init()
    {
        m_stand =
            std::make_unique<PlayerStand>(QStringList{u"1.mp3"_s, u"2.mp3"_s, u"3.mp3"_s, u"4.mp3"_s, u"5.mp3"_s});
        m_window = &m_stand->window;
        m_window->show();
    }

    void nextAndPreviousGoRound()
    {
        m_window->Label1.press();
        m_window->Label3.press();
        QCOMPARE(m_stand->takeCalls(), u""_s); // Nothing is chosen.
        m_window->Label4.press();
        QCOMPARE(m_stand->takeCalls(), u"FileName 1.mp3, Play"_s);
        QCOMPARE(m_window->Label7.Caption(), u"    1"_s);
        m_window->bPrev.press();
        QCOMPARE(m_stand->takeCalls(), u"FileName 5.mp3, Play"_s);
        QCOMPARE(m_window->player().SongIndex, 4);
        m_window->Label3.press();
        QCOMPARE(m_stand->takeCalls(), u"FileName 4.mp3, Play"_s);
        m_window->File1.setListIndex(4);
        m_window->bNext.press();
        QCOMPARE(m_stand->takeCalls(), u"FileName 1.mp3, Play"_s);
        const TestFolder empty;
        m_window->setMusicFolder(empty.path());
        m_window->bNext.press();
        QCOMPARE(m_stand->takeCalls(), u""_s);
    }

    void pauseAndPlayTakeTurns()
    {
        for (Label *label : {&m_window->Label10, &m_window->Label10, &m_window->Label10, &m_window->Label2})
            label->press();
        m_window->bPause.press(); // A stop does not forget the pause.
        QCOMPARE(m_stand->takeCalls(), u"Pause, Play, Pause, Stop, Play"_s);
    }

    void stopLeavesNothingRunning()
    {
        m_window->Label4.press();
        m_stand->engine.setSong(65, 187);
        QTRY_COMPARE(m_window->HScroll1.Value(), 65);
        const auto marks = {OptionsItem, AutoPlayItem, RepeatSongItem, RepeatAllItem};
        for (const SongMenuItem item : marks)
            m_stand->songMenu.mnuSongItem.setChecked(item, true);
        QVERIFY(m_window->windowTitle().startsWith(u"1 - "_s));
        m_window->bStop.press();
        QVERIFY(!m_window->windowTitle().contains(u" - "_s));
        QCOMPARE(m_stand->takeCalls(), u"FileName 1.mp3, Play, Stop"_s);
        for (const SongMenuItem item : marks)
            QCOMPARE(m_stand->songMenu.mnuSongItem.Checked(item), item == OptionsItem);
        QCOMPARE(m_window->Text1.Text(), u"0:00/0:00"_s);
        QCOMPARE(m_window->HScroll1.Value(), 0);
        QCOMPARE(m_window->Label7.Caption(), QString());
        QVERIFY(!m_window->Timer1.Enabled() && !m_window->Timer4.Enabled());
    }

    void theEndOfASongStartsWhatIsMarked_data()
    {
        QTest::addColumn<int>("mark");
        QTest::addColumn<QString>("calls");
        QTest::newRow("nothing") << -1 << u""_s;
        QTest::newRow("Auto Play repeats") << int(AutoPlayItem) << u"FileName 4.mp3, Play"_s;
        QTest::newRow("Repeat Song") << int(RepeatSongItem) << u""_s;
        QTest::newRow("Repeat All") << int(RepeatAllItem) << u""_s;
        QTest::newRow("Options advances") << int(OptionsItem) << u"FileName 3.mp3, Play"_s;
    }

    void theEndOfASongStartsWhatIsMarked()
    {
        QFETCH(int, mark);
        QFETCH(QString, calls);
        m_window->player().RepeatSongName = u"4.mp3"_s;
        m_window->File1.setListIndex(1);
        m_window->Label1.press();
        if (mark >= 0)
            m_stand->songMenu.mnuSongItem.setChecked(mark, true);
        m_stand->takeCalls();
        bool wasIdle = false;
        connect(&m_window->player(), &Player::songEnded, this, [&] {
            wasIdle = m_window->Text1.Text() == u"0:00/0:00"_s && !m_window->Timer1.Enabled() &&
                      !m_window->Timer4.Enabled() && !isDue(u"Timer2"_s);
        });
        m_stand->engine.finishSong();
        QVERIFY(wasIdle);
        QCOMPARE(m_stand->takeCalls(), u""_s); // Nothing is opened inside the engine's report.
        QTRY_VERIFY(!isDue(u"Timer2"_s) && !isDue(u"Timer3"_s) && !isDue(u"AutoPlaySong"_s));
        QCOMPARE(m_stand->takeCalls(), calls);
        QCOMPARE(m_window->Timer1.Enabled(), !calls.isEmpty());
        QCOMPARE(m_window->Timer4.Enabled(), !calls.isEmpty());
        QCOMPARE(m_window->Label7.Caption().trimmed(), mark == OptionsItem ? u"3"_s : u"2"_s);
    }

    void aModeTakenOffInTimeRepeatsNothing()
    {
        m_stand->songMenu.toggle(AutoPlayItem);
        m_stand->engine.finishSong();
        m_stand->songMenu.clear();
        QTRY_VERIFY(!isDue(u"Timer2"_s));
        QVERIFY(!isDue(u"Timer3"_s));
        QCOMPARE(m_stand->takeCalls(), u""_s);
    }

    void theAdvanceGoesOnePastTheEnd()
    {
        m_stand->songMenu.mnuSongItem.setChecked(OptionsItem, true);
        m_window->File1.setListIndex(4);
        m_window->songs().SongMenuOpen = true;
        m_stand->engine.finishSong();
        QTRY_COMPARE(m_window->player().SongIndex, 5);
        QCOMPARE(m_stand->takeCalls(), u"FileName , Play"_s);
        QCOMPARE(m_window->File1.ListIndex(), -1);
        QVERIFY(!m_window->songs().SongMenuOpen);
        m_stand->engine.finishSong();
        QTRY_COMPARE(m_window->player().SongIndex, 0);
        QCOMPARE(m_stand->takeCalls(), u"FileName 1.mp3, Play"_s);
        QCOMPARE(m_window->File1.ListIndex(), 0);
    }

    void anErrorIsToldOnceAndChangesNothing()
    {
        m_window->Label4.press();
        m_stand->engine.fail(53, u"Not found."_s);
        QCOMPARE(takeBoxes(), QStringList(u"Error - 53|MediaPlayer1 - Not found."_s));
        QCOMPARE(m_stand->takeCalls(), u"FileName 1.mp3, Play"_s);
        QVERIFY(m_window->Timer1.Enabled() && m_window->Timer4.Enabled());
        QCOMPARE(m_window->Label7.Caption().trimmed(), u"1"_s);
    }

    void timesAreShown()
    {
        const auto display = [this] {
            const HScrollBar &slider = m_window->HScroll1;
            return u"%1 %2 %3"_s.arg(m_window->Text1.Text()).arg(slider.Value()).arg(slider.Max());
        };
        m_window->Label4.press();
        m_stand->takeCalls();
        for (const auto &[position, duration, shown] : {
                 std::tuple(90, 100, u"1:30/1:40 90 100"_s),
                 {5, 0, u"0:05/0:00 0 0"_s}, // The length is not known.
                 {35000, 40000, u"9:43:20/11:06:40 32767 32767"_s},
                 {0, 9, u"0:00/0:09 0 9"_s}, // Shorter than the song before.
             }) {
            m_stand->engine.setSong(position, duration);
            QTRY_COMPARE(display(), shown);
        }
        QCOMPARE(m_stand->takeCalls(), u""_s); // Showing never seeks.
    }

    void onlyTheThumbSeeks()
    {
        m_window->Label4.press();
        m_stand->engine.setSong(50, 100);
        HScrollBar &slider = m_window->HScroll1;
        QTRY_COMPARE(slider.Value(), 50);
        m_stand->takeCalls();
        QTest::mouseClick(&slider, Qt::LeftButton, {}, {2, 8});
        QTRY_COMPARE(slider.Value(), 50); // Put back.
        QCOMPARE(m_stand->takeCalls(), u""_s);
        slider.setSliderDown(true);
        slider.setSliderPosition(100);
        QCOMPARE(m_stand->takeCalls(), u"Position 100"_s);
        m_stand->engine.setSong(20, 60);
        QTRY_COMPARE(m_window->Text1.Text(), u"0:20/1:00"_s);
        QCOMPARE(slider.Value(), 100); // Still held.
        slider.setSliderDown(false);
        QTRY_COMPARE(slider.Value(), 20);
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(m_stand->takeCalls(), u"Position 25"_s);
    }

    void engineAndSliderAgreeOnTheVolume()
    {
        VScrollBar &slider = m_window->VScroll1;
        slider.setValue(-600);
        QTest::keyClick(&slider, Qt::Key_Up);
        QCOMPARE(m_stand->takeCalls(), u"Volume -600, Volume -595"_s);
        m_window->Label4.press();
        QCOMPARE(m_stand->takeCalls(), u"FileName 1.mp3, Play"_s);
        m_stand->engine.setVolume(-300); // Changed from elsewhere.
        m_stand->engine.setSong(1, 9);
        QTRY_COMPARE(slider.Value(), -300);
        QCOMPARE(m_window->player().CurrentVolume, std::int16_t(-300));
        slider.setValue(0);
        QCOMPARE(m_stand->engine.volume(), 0);
    }

    void theTitleRotatesWhileItIsSeen()
    {
        QCOMPARE(rotatedTitle(u"    Song"_s), u"   Song "_s);
        QCOMPARE(rotatedTitle({}), QString());
        const QSignalSpy names(m_window, &Mp3Frm::songNameChanged);
        m_window->hide();
        m_window->player().play(m_stand->folder.path(u"A Song.mp3"_s), u"A Song"_s);
        m_window->player().setRepeatDue(true);
        QTRY_VERIFY(!isDue(u"Timer2"_s)); // Events run, and the title stands.
        QCOMPARE(m_window->Label7.Caption(), u"    A Song"_s);
        m_window->show();
        QTRY_COMPARE(m_window->Label7.Caption(), u"Song    A "_s);
        QCOMPARE(names, QList<QVariantList>{{u"A Song"_s}}); // Told once, and whole.
        QCOMPARE(m_stand->takeCalls(), u"FileName A Song.mp3, Play"_s);
    }

private:
    bool isDue(const QString &timer) { return control<Timer>(*m_window, timer).Enabled(); }

    std::unique_ptr<PlayerStand> m_stand;
    Mp3Frm *m_window = nullptr;
};

QTEST_MAIN(TransportTest)
#include "tst_transport.moc"
