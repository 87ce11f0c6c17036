// SPDX-License-Identifier: GPL-3.0-or-later
// A song as frames: one sample for each channel, 1.0 the loudest. Decoders are used by one thread at a time.
#pragma once

#include <QByteArray>

#include <memory>

struct SoundFormat {
    int rate = 0;
    int channels = 0;
    qint64 frameSize() const { return static_cast<qint64>(sizeof(float)) * channels; }
    bool operator==(const SoundFormat &) const = default;
};

class SongDecoder
{
public:
    virtual ~SongDecoder() = default;

    virtual SoundFormat format() const = 0;

    /// The song's length in frames; 0 when it is not known. It may be an estimate until refineLength() is done.
    virtual qint64 length() const = 0;

    /// Works on a better length for a few milliseconds. False when there is nothing more to do.
    virtual bool refineLength() { return false; }

    /// Decodes up to count frames; fewer only at the end of the song. Damaged places are passed over.
    virtual qint64 read(float *frames, qint64 count) = 0;

    /// Goes to exactly this frame. False when that cannot be done; the place is undefined then.
    virtual bool seek(qint64 frame) = 0;
};

/// The decoders, by the host's bytes of a path; null for a file that is not of their kind, and without their library.
std::unique_ptr<SongDecoder> openMp3(const QByteArray &hostPath);
std::unique_ptr<SongDecoder> openWav(const QByteArray &hostPath);
