// SPDX-License-Identifier: GPL-3.0-or-later
// A place for sound to go: it asks for frames, knows which of them have been heard, and gives back what lies ready.
// Used by one thread; wake() may be called from any.
#pragma once

#include "playback/song_decoder.h"

#include <QString>

class SoundOutput
{
public:
    virtual ~SoundOutput() = default;

    /// Gets ready for a song. What of a song before is still to be heard is heard to its end.
    virtual void open(const SoundFormat &format, const QString &title) = 0;

    /// Silence at once.
    virtual void close() = 0;

    virtual void setPaused(bool on) = 0;

    /// How many frames it wants now.
    virtual qint64 room() const = 0;
    virtual void write(const float *frames, qint64 count) = 0;

    /// Nothing more is to come for now: what was written is heard, however little it is.
    virtual void finish() {}

    /// How many of the frames written are still to be heard.
    virtual qint64 pending() const = 0;

    /// Gives back as many of these as can still be replaced: the next frames are written in their place.
    virtual qint64 takeBack() = 0;

    /// True once after what was written has been lost: it is to be taken back and written anew.
    virtual bool takeLoss() { return false; }

    /// Are frames being heard just now?
    virtual bool isRunning() const = 0;

    enum class Reach { Unknown, Heard, NoServer, NoDevice };
    virtual Reach reach() const { return Reach::Heard; }

    /// Returns when there is something to do, after wake(), and after this many milliseconds (-1: no such limit).
    virtual void wait(int ms) = 0;
    virtual void wake() = 0;
};

/// The output that KIV_MP3_SOUND asks for: "null" plays in real time to nobody, "pcm:" and a path records all songs in
/// a row as 32-bit stereo samples, anything else is the sound server.
std::unique_ptr<SoundOutput> makeSoundOutput();
std::unique_ptr<SoundOutput> makePulseOutput();
