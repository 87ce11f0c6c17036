// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/player_control.h"

#include "base/last_error.h"
#include "base/names.h"
#include "controls/msg_box.h"

using namespace Qt::StringLiterals;

namespace
{
const QString paused = u"Paused"_s;
const QString playing = u"Playing"_s;
} // namespace

int nextRow(int row, int count)
{
    return row < count - 1 ? row + 1 : 0;
}

int previousRow(int row, int count)
{
    return row > 0 ? row - 1 : count - 1;
}

std::int32_t advancedIndex(std::int32_t index, int count)
{
    return index == count ? 0 : index + 1;
}

PlayerControl::PlayerControl(QObject *parent, MediaEngine &engine, SongList &songs, PlayModes &modes,
                             PositionDisplay &display, TransportControls controls)
    : QObject(parent), m_engine(engine), m_songs(songs), m_modes(modes), m_display(display), m_controls(controls)
{
    connectHandlers();
}

void PlayerControl::connectHandlers()
{
    connect(&m_controls.Label1, &Label::Click, this, &PlayerControl::Label1_Click);
    connect(&m_controls.Label2, &Label::Click, this, &PlayerControl::Label2_Click);
    connect(&m_controls.Label3, &Label::Click, this, &PlayerControl::Label3_Click);
    connect(&m_controls.Label4, &Label::Click, this, &PlayerControl::Label4_Click);
    connect(&m_controls.Label10, &Label::Click, this, &PlayerControl::Label10_Click);
    connect(&m_controls.bPlay, &PictureBox::Click, this, &PlayerControl::Label1_Click);
    connect(&m_controls.bStop, &PictureBox::Click, this, &PlayerControl::Label2_Click);
    connect(&m_controls.bPrev, &PictureBox::Click, this, &PlayerControl::Label3_Click);
    connect(&m_controls.bNext, &PictureBox::Click, this, &PlayerControl::Label4_Click);
    connect(&m_controls.bPause, &PictureBox::Click, this, &PlayerControl::Label10_Click);
    connect(&m_controls.AutoPlaySong, &Timer::tick, this, &PlayerControl::AutoPlaySong_Timer);
    connect(&m_controls.Timer2, &Timer::tick, this, &PlayerControl::Timer2_Timer);
    connect(&m_controls.Timer3, &Timer::tick, this, &PlayerControl::Timer3_Timer);
    connect(&m_engine, &MediaEngine::endOfStream, this, &PlayerControl::MediaPlayer1_EndOfStream);
    connect(&m_engine, &MediaEngine::errorOccurred, this, &PlayerControl::MediaPlayer1_Error);
}

void PlayerControl::open(const QString &path)
{
    ++m_openedSongs;
    m_engine.setFileName(path);
    m_engine.play();
    noteSong(Song::Playing);
    m_display.startTime();
}

void PlayerControl::playFile(const QString &path, const QString &title)
{
    open(path);
    m_display.showTitle(title);
}

void PlayerControl::playSelected()
{
    if (m_songs.File1.ListIndex() >= 0)
        startSelected();
}

void PlayerControl::stopEngine()
{
    m_engine.stop();
    noteSong(Song::None);
}

void PlayerControl::noteSong(Song song)
{
    m_song = song;
    Q_EMIT playingPathChanged();
}

void PlayerControl::startSelected()
{
    const QString name = m_songs.File1.List(m_songs.File1.ListIndex());
    playFile(pathIn(m_songs.File1.Path(), name), withoutExtension(name));
}

// Play: the chosen song from its start.
void PlayerControl::Label1_Click()
{
    playSelected();
}

// Stop: silence, an idle display, and every play mode off.
void PlayerControl::Label2_Click()
{
    stopEngine();
    m_display.showIdleTime();
    m_display.clearTitle();
    m_modes.clear();
}

// Previous: the song before, from the first one the last; nothing without a choice.
void PlayerControl::Label3_Click()
{
    FileListBox &songs = m_songs.File1;
    if (songs.ListIndex() < 0)
        return;
    songs.setListIndex(previousRow(songs.ListIndex(), songs.ListCount()));
    startSelected();
}

// Next: the song after, from the last one (or without a choice) the first.
void PlayerControl::Label4_Click()
{
    FileListBox &songs = m_songs.File1;
    songs.setListIndex(nextRow(songs.ListIndex(), songs.ListCount()));
    playSelected();
}

// Pause: hold the song, or go on. The time stands by itself, the title keeps scrolling.
void PlayerControl::Label10_Click()
{
    const bool isPaused = PlayStatus == paused;
    if (isPaused) {
        m_engine.play();
        noteSong(Song::Playing);
    } else {
        m_engine.pause();
        if (m_song != Song::None)
            noteSong(Song::Held);
    }
    PlayStatus = isPaused ? playing : paused;
}

// The advance through the folder. From the last song it first goes one past the end, which the engine refuses, and only
// then back to the start; that pause in the round is wanted.
void PlayerControl::AutoPlaySong_Timer()
{
    FileListBox &songs = m_songs.File1;
    SongIndex = advancedIndex(SongIndex, songs.ListCount());
    open(pathIn(songs.Path(), songs.List(SongIndex)));
    m_controls.Timer3.setEnabled(false);
    m_songs.SongMenuOpen = false;
    songs.setListIndex(SongIndex);
    m_display.showTitle(withoutExtension(songs.List(songs.ListIndex())));
}

// First stage of a repeat: the second one follows if the mode is still on.
void PlayerControl::Timer2_Timer()
{
    if (m_modes.isChecked(AutoPlayItem))
        m_controls.Timer3.setEnabled(true);
}

// Second stage of a repeat: the song to repeat plays again under the title that stands.
void PlayerControl::Timer3_Timer()
{
    open(pathIn(m_songs.File1.Path(), RepeatSongName));
    m_display.startTitle();
}

// The song has ended: an idle display, then whatever is to follow, after this handler has returned. Which check mark
// starts which timer is as old as the player: "Auto Play" repeats, and the mark that would advance is one no menu sets.
void PlayerControl::MediaPlayer1_EndOfStream()
{
    noteSong(Song::None);
    m_display.showIdleTime();
    m_display.stopTitle();
    Q_EMIT songEnded();
    if (m_modes.isChecked(AutoPlayItem))
        m_controls.Timer2.setEnabled(true);
    if (m_modes.isChecked(OptionsItem))
        m_controls.AutoPlaySong.setEnabled(true);
}

// The engine failed: its reason in an error box, nothing else.
void PlayerControl::MediaPlayer1_Error()
{
    noteSong(Song::None);
    MsgBox::showError(lastError());
}
