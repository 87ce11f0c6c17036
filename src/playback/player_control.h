// SPDX-License-Identifier: GPL-3.0-or-later
// The transport: play, pause, stop, next, previous, and what follows when a song ends. It drives the engine and the
// main window's transport controls; every other window that plays a song asks it to.
//
// Order matters in one place: a new file is never opened inside the engine's own report of an end. The one-shot timers
// run what follows once that handler has returned.
#pragma once

#include "controls/picture_box.h"
#include "playback/media_engine.h"
#include "playback/play_modes.h"
#include "playback/position_display.h"
#include "playback/song_list.h"

#include <cstdint>

/// The controls of the main window that drive the transport.
struct TransportControls {
    Label &Label1;     // Play.
    Label &Label2;     // Stop.
    Label &Label3;     // Previous song.
    Label &Label4;     // Next song.
    Label &Label10;    // Pause, or go on.
    PictureBox &bPlay; // The same five as pictures.
    PictureBox &bStop;
    PictureBox &bPrev;
    PictureBox &bNext;
    PictureBox &bPause;
    Timer &AutoPlaySong; // Once: the next song of the folder.
    Timer &Timer2;       // Once: first stage of a repeat.
    Timer &Timer3;       // Once: second stage, plays RepeatSongName.
};

/// The row after row among count songs, around the end; 0 without a choice (-1).
int nextRow(int row, int count);

/// The row before row, around the start.
int previousRow(int row, int count);

/// Where the advance through the folder goes from index: one past the end first, then to the start.
std::int32_t advancedIndex(std::int32_t index, int count);

class PlayerControl : public QObject
{
    Q_OBJECT

public:
    PlayerControl(QObject *parent, MediaEngine &engine, SongList &songs, PlayModes &modes, PositionDisplay &display,
                  TransportControls controls);

    /// Opens a song (a program path) and plays it; the time runs.
    void open(const QString &path);

    /// open(), with a title that scrolls.
    void playFile(const QString &path, const QString &title);

    /// Plays the song chosen in File1; does nothing without one.
    void playSelected();

    /// Ends the sound alone; the display stays.
    void stopEngine();

    /// The engine's loudness in hundredths of a decibel.
    int engineVolume() const { return m_engine.volume(); }

    /// The song that plays or is held, as a program path; "" before the first, and once it was stopped or has ended.
    QString playingPath() const { return m_song == Song::None ? QString() : m_engine.fileName(); }

    /// Is the song held? It is not sounding then, and keeps its place.
    bool isHeld() const { return m_song == Song::Held; }

    /// How many songs were opened so far: tells one playing of a song from the next.
    int openedSongs() const { return m_openedSongs; }

    std::int32_t SongIndex = 0; // Row of File1 that the automatic advance starts from.
    QString PlayStatus;         // "Paused" after a pause, "Playing" after going on, "" before the first.
    QString RepeatSongName;     // File name, without folder, of the song to repeat.

Q_SIGNALS:
    /// The song has played to its end and the display is idle. Who has a song to follow starts it later, not in here.
    void songEnded();

    /// playingPath() may be another one, or isHeld().
    void playingPathChanged();

private:
    enum class Song { None, Playing, Held };

    void connectHandlers();
    void Label1_Click();
    void Label2_Click();
    void Label3_Click();
    void Label4_Click();
    void Label10_Click();
    void AutoPlaySong_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void MediaPlayer1_EndOfStream();
    void MediaPlayer1_Error();
    void startSelected();
    void noteSong(Song song);

    MediaEngine &m_engine;
    SongList &m_songs;
    PlayModes &m_modes;
    PositionDisplay &m_display;
    TransportControls m_controls;
    int m_openedSongs = 0;
    Song m_song = Song::None;
};
