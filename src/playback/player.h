// SPDX-License-Identifier: GPL-3.0-or-later
// The transport: play, pause, stop, next, previous, seek, loudness, and what follows when a song ends. It knows no
// window: windows, the session bus and tests drive it by the same verbs and follow its signals.
//
// Order matters in one place: a new file is never opened inside the engine's own report of an end. The one-shot timers
// run what follows once that handler has returned.
#pragma once

#include "base/timer.h"
#include "platform/entries.h"
#include "playback/media_engine.h"
#include "playback/play_modes.h"
#include "playback/song_folder.h"

#include <cstdint>

class Player : public QObject
{
    Q_OBJECT

public:
    Player(QObject *parent, MediaEngine &engine, SongFolder &songs, PlayModes &modes);

    static constexpr int loudest = 0; // Hundredths of a decibel.
    static constexpr int quietest = -2290;
    static constexpr int volumeStep = 5;

    /// Opens a song (a program path) and plays it, under the title that stands.
    void open(const QString &path);

    /// Opens a song and plays it under a title.
    void play(const QString &path, const QString &title);

    /// Plays the chosen song; does nothing without one.
    void playChosen();

    /// Pauses the song; after a pause, goes on. A stop or another song does not end a pause for this purpose.
    void pauseOrResume();

    /// Silence, and every play mode off.
    void stop();

    /// Ends the sound alone, without stopped().
    void stopSound();

    /// Chooses the song after (before) the chosen one, around the ends, and plays it. Without a choice the first song
    /// is next, and none is previous.
    void next();
    void previous();

    /// Goes on from another position, in seconds, within the song. Without a song nothing happens.
    void seek(double seconds);

    /// The engine's loudness in hundredths of a decibel, 0 is full.
    int volume() const { return m_engine.volume(); }
    void setVolume(int hundredthsOfDecibel);

    /// Louder or quieter by a number of small steps, within loudest and quietest.
    void changeVolume(int steps);

    /// The folder's next song plays, or the song to repeat does if the mode is still on, as soon as the current handler
    /// has returned. False calls that off.
    void setAdvanceDue(bool due) { AutoPlaySong.setEnabled(due); }
    void setRepeatDue(bool due) { Timer2.setEnabled(due); }

    /// The song that plays or is paused, as a program path; "" before the first, and once it was stopped or has ended.
    QString playingPath() const { return m_hasSong ? m_engine.fileName() : QString(); }

    /// The song opened last, as a program path, whether it still plays or not.
    QString openedPath() const { return m_engine.fileName(); }

    /// Does a program path lead to the song that plays or is paused? Its file is known by any name: in other letters,
    /// through a link, or renamed since.
    bool isPlayingFile(const QString &path) const;

    /// The file name of the song that plays or is paused, as spelled on the disk, when it lies in that folder; else "".
    QString playingNameIn(const QString &folder) const;

    /// A song has another path now; it may be the one that plays.
    void noteRename(const QString &path);

    bool isPaused() const { return m_hasSong && m_engine.isPaused(); }

    /// Does the position move on by itself just now?
    bool isMoving() const { return m_engine.isPlaying(); }

    /// Does the song go on silently, until there is a sound device?
    bool isDeviceMissing() const { return m_engine.isDeviceMissing(); }

    /// Position and length of the open song in seconds; 0 when there is none, or it is not known (yet).
    double positionSeconds() const { return m_engine.currentPosition(); }
    double lengthSeconds() const { return m_engine.duration(); }

    /// How many songs were opened: each playing of a song has a number of its own.
    int openedSongs() const { return m_openedSongs; }

    std::int32_t SongIndex = 0;     // Row of the songs that the automatic advance starts from.
    QString PlayStatus;             // "Paused" after a pause, "Playing" after going on, "" before the first.
    QString RepeatSongName;         // File name, without folder, of the song to repeat.
    std::int16_t CurrentVolume = 0; // The loudness that was set last.

Q_SIGNALS:
    /// A song was opened and plays.
    void songOpened();

    /// What plays is called so from now on.
    void titleChanged(const QString &title);

    /// The song to repeat plays again, under the title that stands.
    void songRepeated();

    /// The advance has opened another song; it is chosen next.
    void advanced();

    void stopped();

    /// The song has played to its end. Who has a song to follow starts it later, not in here.
    void songEnded();

    /// The engine could not play the song; lastError() says why.
    void playbackFailed();

    /// playingPath() or isPaused() may be another.
    void songChanged();

    /// Position, length, isMoving() or isDeviceMissing() changed otherwise than by the passing of time.
    void stateChanged();

    void volumeChanged();

private:
    void connectHandlers();
    void AutoPlaySong_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void MediaPlayer1_EndOfStream();
    void MediaPlayer1_Error();
    void setHasSong(bool hasSong);

    MediaEngine &m_engine;
    SongFolder &m_songs;
    PlayModes &m_modes;
    Timer AutoPlaySong;                 // Once: the advance through the folder.
    Timer Timer2;                       // Once: first stage of a repeat.
    Timer Timer3;                       // Once: second stage, plays RepeatSongName.
    std::optional<FileIdentity> m_file; // Of the song opened last, where it could be found.
    QString m_path;                     // Where that song is by now.
    int m_openedSongs = 0;
    bool m_hasSong = false; // A song was opened, and has neither ended nor been stopped since.
};
