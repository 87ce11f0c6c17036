// SPDX-License-Identifier: GPL-3.0-or-later
// What the session bus learns of the player, as plain values, and its units: loudness from 0 to 1, time in
// microseconds.
#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

enum class Playback { Stopped, Paused, Playing };

struct PlayerFacts {
    Playback playback = Playback::Stopped;
    int songNumber = 0;       // Another one each time a song is opened.
    double lengthSeconds = 0; // 0: not known (yet).
    double volume = 0;        // 1 is full.
    QVariantMap song;         // songMetadata() of the song that plays or is paused; empty without one.
    bool canPlay = false;     // There is a song to start.
    bool canGoNext = false;
    bool canGoPrevious = false;

    bool canSeek() const { return playback != Playback::Stopped && lengthSeconds > 0; }
};

/// The song's identity on the bus, an object path.
QString trackPath(int songNumber);

/// Two of them in the form of the bus: "Playing", "Paused", "Stopped"; the song's data with what is known while it
/// plays only.
QString playbackStatus(Playback playback);
QVariantMap metadata(const PlayerFacts &facts);

/// The facts by the names of the player interface's properties, those whose changes are reported.
QVariantMap playerProperties(const PlayerFacts &facts);

/// What of now is not in before, or different there.
QVariantMap changedProperties(const QVariantMap &before, const QVariantMap &now);

/// A loudness in hundredths of a decibel between 0 (1.0) and quietest (0.0), and back; nothing for what is no number.
double volumeOf(int attenuation, int quietest);
std::optional<int> attenuationOf(double volume, int quietest);

/// Whole microseconds of a time in seconds.
qint64 microseconds(double seconds);

/// Where a jump leads to, in seconds, never before the start; nothing when it leads beyond the song's end.
std::optional<double> jumpTarget(double positionSeconds, qint64 offsetMicroseconds, double lengthSeconds);
