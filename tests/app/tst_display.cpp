// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window shows of the transport, and its keys and sliders that drive it.
#include "app/display_texts.h"
#include "controls/skin_style.h"
#include "tests/app/main_window_stand.h"

#include <QApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class DisplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new SkinStyle); } // Its sliders have no arrows.

    void init()
    {
        m_stand =
            std::make_unique<MainWindowStand>(QStringList{u"1.mp3"_s, u"2.mp3"_s, u"3.mp3"_s, u"4.mp3"_s, u"5.mp3"_s});
        m_window = &m_stand->window;
        m_window->show();
    }

    // A picture and the label below it are one command.
    void everyKeyOfTheTransportDrivesIt()
    {
        Mp3Frm &window = *m_window;
        for (const auto &[key, calls] : {
                 std::pair<Pressable *, QString>(&window.Label4, u"FileName 1.mp3, Play"_s),
                 {&window.bNext, u"FileName 2.mp3, Play"_s},
                 {&window.Label3, u"FileName 1.mp3, Play"_s},
                 {&window.bPrev, u"FileName 5.mp3, Play"_s},
                 {&window.Label1, u"FileName 5.mp3, Play"_s},
                 {&window.bPlay, u"FileName 5.mp3, Play"_s},
                 {&window.Label10, u"Pause"_s},
                 {&window.bPause, u"Play"_s},
                 {&window.Label2, u"Stop"_s},
                 {&window.bStop, u"Stop"_s},
             }) {
            key->press();
            QVERIFY2(m_stand->takeCalls() == calls, qPrintable(key->objectName()));
        }
        QCOMPARE(window.player().SongIndex, 4);
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

    void theEndOfASongLeavesItsTitle()
    {
        m_window->Label4.press();
        m_stand->engine.setSong(65, 187);
        QTRY_COMPARE(m_window->Text1.Text(), u"1:05/3:07"_s);
        m_stand->engine.finishSong();
        QCOMPARE(m_window->Text1.Text() + m_window->Label7.Caption(), u"0:00/0:00    1"_s);
        QVERIFY(!m_window->Timer1.Enabled() && !m_window->Timer4.Enabled());
        m_window->player().RepeatSongName = u"4.mp3"_s;
        m_stand->songMenu.toggle(AutoPlayItem);
        m_stand->engine.finishSong();
        QTRY_COMPARE(m_stand->engine.fileName(), m_stand->folder.path(u"4.mp3"_s));
        QCOMPARE(m_stand->takeCalls(), u"FileName 1.mp3, Play, FileName 4.mp3, Play"_s);
        QVERIFY(m_window->Timer1.Enabled() && m_window->Timer4.Enabled());
        QCOMPARE(m_window->Label7.Caption().trimmed(), u"1"_s);
    }

    void theAdvanceIsSeenInTheList()
    {
        m_stand->songMenu.mnuSongItem.setChecked(OptionsItem, true);
        m_window->File1.setListIndex(3);
        m_window->songs().SongMenuOpen = true;
        m_stand->engine.finishSong();
        QTRY_COMPARE(m_window->File1.ListIndex(), 4);
        QVERIFY(!m_window->songs().SongMenuOpen);
        QCOMPARE(m_stand->takeCalls(), u"FileName 5.mp3, Play"_s);
        QCOMPARE(m_window->Label7.Caption().trimmed(), u"5"_s);
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
        m_window->Label10.press(); // Nothing is put right by the passing of time.
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
        m_stand->engine.loseDevice();
        QTRY_COMPARE(display(), u"No sound  0:00/0:09 0 9"_s);
    }

    void onlyTheThumbSeeks()
    {
        m_window->Label4.press();
        m_window->Label10.press(); // Nothing is put right by the passing of time.
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
        QTRY_COMPARE(slider.Max(), 60);
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
        m_window->player().stop();
        m_window->player().setVolume(-400); // As the desktop does.
        QCOMPARE(slider.Value(), -400);
        slider.setValue(0);
        QCOMPARE(m_stand->engine.volume(), 0);
        m_stand->takeCalls();
    }

    void theTitleRotatesWhileItIsSeen()
    {
        QCOMPARE(rotatedTitle(u"    Song"_s), u"   Song "_s);
        QCOMPARE(rotatedTitle({}), QString());
        QCOMPARE(msUntilNextSecond(12.25), 254);
        const QSignalSpy names(m_window, &Mp3Frm::songNameChanged);
        m_window->hide();
        m_window->player().play(m_stand->folder.path(u"A Song.mp3"_s), u"A Song"_s);
        QTest::qWait(2 * m_window->Timer4.Interval());
        QCOMPARE(m_window->Label7.Caption(), u"    A Song"_s);
        m_window->show();
        QTRY_COMPARE(m_window->Label7.Caption(), u"Song    A "_s);
        QCOMPARE(names, QList<QVariantList>{{u"A Song"_s}}); // Told once, and whole.
        QCOMPARE(m_stand->takeCalls(), u"FileName A Song.mp3, Play"_s);
    }

private:
    std::unique_ptr<MainWindowStand> m_stand;
    Mp3Frm *m_window = nullptr;
};

QTEST_MAIN(DisplayTest)
#include "tst_display.moc"
