// SPDX-License-Identifier: GPL-3.0-or-later
// WAV songs, decoded by libsndfile; the only file that knows its header.
#include "platform/loaded_library.h"
#include "playback/song_decoder.h"

#include <sndfile.h>

using namespace Qt::StringLiterals;

namespace
{
struct Sndfile : LoadedLibrary {
    Sndfile() : LoadedLibrary(u"sndfile"_s, 1) {}
    Function<decltype(::sf_open)> open{*this, "sf_open"};
    Function<decltype(::sf_close)> close{*this, "sf_close"};
    Function<decltype(::sf_readf_float)> readf_float{*this, "sf_readf_float"};
    Function<decltype(::sf_seek)> seek{*this, "sf_seek"};
};

const Sndfile &sndfile()
{
    static const Sndfile library;
    return library;
}

class WavDecoder : public SongDecoder
{
public:
    WavDecoder(SNDFILE *file, const SF_INFO &info) : m_file(file), m_info(info) {}
    ~WavDecoder() override { sndfile().close(m_file); }
    WavDecoder(const WavDecoder &) = delete;
    WavDecoder &operator=(const WavDecoder &) = delete;

    SoundFormat format() const override { return {m_info.samplerate, m_info.channels}; }
    qint64 length() const override { return m_info.frames; }
    qint64 read(float *frames, qint64 count) override { return sndfile().readf_float(m_file, frames, count); }
    bool seek(qint64 frame) override { return sndfile().seek(m_file, frame, SEEK_SET) == frame; }

private:
    SNDFILE *m_file;
    SF_INFO m_info;
};
} // namespace

std::unique_ptr<SongDecoder> openWav(const QByteArray &hostPath)
{
    SF_INFO info{};
    SNDFILE *file = sndfile().isComplete() ? sndfile().open(hostPath.constData(), SFM_READ, &info) : nullptr;
    return file ? std::make_unique<WavDecoder>(file, info) : nullptr;
}
