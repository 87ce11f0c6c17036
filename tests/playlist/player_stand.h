// A main window's worth of controls around a player without sound, for the windows that ask it to play.
#pragma once

#include "playback/player_control.h"
#include "tests/support/fake_engine.h"

class PlayerStand : public QWidget
{
public:
    explicit PlayerStand(const QString &folder) { File1.setPath(folder); }

    QString title() const { return m_label7.Caption(); }

    FakeEngine engine;
    FileListBox File1{this, {}, QStringLiteral("*.mp3;*.wav;*.wma")};

private:
    ListBox m_list1{this, {}};
    Label m_label7{this, {}}, m_play{this, {}}, m_stop{this, {}}, m_previous{this, {}}, m_next{this, {}},
        m_pause{this, {}};
    PictureBox m_bPlay{this, {}}, m_bStop{this, {}}, m_bPrev{this, {}}, m_bNext{this, {}}, m_bPause{this, {}};
    TextBox m_text1{this, {}};
    HScrollBar m_hScroll1{this, {}};
    VScrollBar m_vScroll1{this, {}, 0, -2290};
    Timer m_timer1{this, {}, 1}, m_timer4{this, {}, 100};
    Timer m_autoPlaySong{this, {}, 1, Timer::Kind::OneShot}, m_timer2{this, {}, 1, Timer::Kind::OneShot},
        m_timer3{this, {}, 1, Timer::Kind::OneShot};
    SongList m_songs{this, File1, m_list1};
    PlayModes m_modes{this};
    PositionDisplay m_display{this, engine, {m_text1, m_hScroll1, m_vScroll1, m_label7, m_timer1, m_timer4}};

public:
    PlayerControl player{this,
                         engine,
                         m_songs,
                         m_modes,
                         m_display,
                         {m_play, m_stop, m_previous, m_next, m_pause, m_bPlay, m_bStop, m_bPrev, m_bNext, m_bPause,
                          m_autoPlaySong, m_timer2, m_timer3}};
};
