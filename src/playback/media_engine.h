// SPDX-License-Identifier: GPL-3.0-or-later
// What plays the songs, as the player sees it: a file, a position, a loudness, two events. All of it happens on the
// user-interface thread. EngineChoice takes the engine that a song needs; tests bring their own.
#pragma once

#include <QObject>
#include <QString>

/// Where a seek goes in a song of this length (0: not known). At the end, or beyond it, the song's last moment is still
/// heard.
inline double seekPlace(double seconds, double duration)
{
    constexpr double lastMomentSeconds = 0.5;
    return qMax(duration > 0 ? qMin(seconds, duration - lastMomentSeconds) : seconds, 0.0);
}

class MediaEngine : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The song to play, as a program path. Setting it silences the song before and opens the file once the current
    /// handler has returned; of several requests in one handler only the last counts. "" closes without an error.
    virtual QString fileName() const = 0;
    virtual void setFileName(const QString &path) = 0;

    /// Starts the file, or goes on after a pause; from the beginning when it was stopped or has ended. Without a file
    /// nothing happens.
    virtual void play() = 0;

    /// Silences the song and keeps the position. Without a song nothing happens.
    virtual void pause() = 0;

    /// Ends the sound; the file stays chosen and play() starts it from the beginning.
    virtual void stop() = 0;

    /// Seconds from the start of the song; 0 when there is none. Setting it seeks, within the song.
    virtual double currentPosition() const = 0;
    virtual void setCurrentPosition(double seconds) = 0;

    /// Length of the open song in seconds; 0 when it is not known (yet).
    virtual double duration() const = 0;

    /// Loudness as attenuation in hundredths of a decibel: 0 is full, -10000 and below is silence.
    virtual int volume() const = 0;
    virtual void setVolume(int hundredthsOfDecibel) = 0;

    /// Does the position move on by itself just now?
    virtual bool isPlaying() const = 0;

    /// Does the song keep its place until play(), by pause()?
    virtual bool isPaused() const = 0;

    /// Is there no device to hear the song with? It goes on silently, and sounds again as soon as there is one.
    virtual bool isDeviceMissing() const { return false; }

Q_SIGNALS:
    /// The open file has played to its end; the argument says nothing.
    void endOfStream(int result);

    /// The file could not be played; lastError() says why. Emitted once for each request that fails.
    void errorOccurred();

    /// Position, length, isPlaying() or isDeviceMissing() changed otherwise than by the passing of time.
    void stateChanged();
};
