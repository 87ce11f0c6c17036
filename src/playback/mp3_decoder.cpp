// SPDX-License-Identifier: GPL-3.0-or-later
// MP3 songs, decoded by libmpg123.
#include "playback/mpg123_library.h"
#include "playback/song_decoder.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{
constexpr long damageToSkip = 4 << 20; // Bytes without a frame after which the song is taken to have ended.
constexpr long framesBeforeSeek = 12;  // Enough to fill the bit reservoir at the lowest bit rates.
constexpr int refineMs = 5;

mpg123_ssize_t readFile(void *file, void *bytes, std::size_t size)
{
    const std::size_t done = std::fread(bytes, 1, size, static_cast<std::FILE *>(file));
    return done == 0 && std::ferror(static_cast<std::FILE *>(file)) ? -1 : static_cast<mpg123_ssize_t>(done);
}

off_t seekFile(void *file, off_t place, int from)
{
    return fseeko(static_cast<std::FILE *>(file), place, from) == 0 ? ftello(static_cast<std::FILE *>(file)) : -1;
}

void closeFile(void *file)
{
    std::fclose(static_cast<std::FILE *>(file));
}

// The file opened and its first frame read; null when there is none near the beginning.
Mpg123Handle openHandle(const QByteArray &path, SoundFormat &format)
{
    Mpg123Handle handle(mpg123().create(nullptr, nullptr));
    if (!handle)
        return {};
    mpg123().param(handle.get(), MPG123_ADD_FLAGS,
                   MPG123_QUIET | MPG123_GAPLESS | MPG123_FORCE_FLOAT | MPG123_SKIP_ID3V2, 0);
    mpg123().param(handle.get(), MPG123_PREFRAMES, framesBeforeSeek, 0);
    long rate = 0;
    int encoding = 0;
    std::FILE *file = std::fopen(path.constData(), "rbe");
    if (!file)
        return {};
    // Without a buffer of its own libmpg123 reads damaged places byte by byte from the system.
    mpg123().replace_reader_handle(handle.get(), readFile, seekFile, closeFile);
    if (mpg123().open_handle(handle.get(), file) != MPG123_OK ||
        mpg123().getformat(handle.get(), &rate, &format.channels, &encoding) != MPG123_OK)
        return {};
    format.rate = static_cast<int>(rate);
    // A change in the middle of the song is converted to what the song began with.
    mpg123().format_none(handle.get());
    mpg123().format(handle.get(), rate, format.channels, encoding);
    mpg123().param(handle.get(), MPG123_RESYNC_LIMIT, damageToSkip, 0);
    return handle;
}

class Mp3Decoder : public SongDecoder
{
public:
    Mp3Decoder(Mpg123Handle handle, SoundFormat format, const QByteArray &path)
        : m_handle(std::move(handle)), m_format(format), m_length(std::max<qint64>(mpg123().length(m_handle.get()), 0))
    {
        if (!hasHeader())
            m_scan = openHandle(path, format);
    }

    SoundFormat format() const override { return m_format; }
    qint64 length() const override { return m_length; }
    bool refineLength() override;
    qint64 read(float *frames, qint64 count) override;
    bool seek(qint64 frame) override { return mpg123().seek(m_handle.get(), frame, SEEK_SET) == frame; }

private:
    bool hasHeader() const;
    void takeIndex();

    Mpg123Handle m_handle;
    SoundFormat m_format;
    qint64 m_length;
    Mpg123Handle m_scan;  // Counts the frames of a song that does not tell their number.
    qint64 m_counted = 1; // Opening has read the first one.
};

// Does the file tell how many frames it has?
bool Mp3Decoder::hasHeader() const
{
    mpg123_frameinfo info{};
    long delay = -1;
    mpg123().info(m_handle.get(), &info);
    mpg123().getstate(m_handle.get(), MPG123_ENC_DELAY, &delay, nullptr);
    return info.vbr != MPG123_CBR || delay >= 0;
}

bool Mp3Decoder::refineLength()
{
    if (!m_scan)
        return false;
    QElapsedTimer elapsed;
    for (elapsed.start(); elapsed.elapsed() < refineMs; ++m_counted) {
        const int result = mpg123().framebyframe_next(m_scan.get());
        if (result == MPG123_OK || result == MPG123_NEW_FORMAT)
            continue;
        m_length = m_counted * mpg123().spf(m_scan.get());
        takeIndex();
        m_scan.reset();
        return false;
    }
    return true;
}

// The places of the frames counted, so that no seek has to look for them again.
void Mp3Decoder::takeIndex()
{
    off_t *places = nullptr;
    off_t step = 0;
    std::size_t count = 0;
    if (mpg123().index(m_scan.get(), &places, &step, &count) == MPG123_OK)
        mpg123().set_index(m_handle.get(), places, step, count);
}

qint64 Mp3Decoder::read(float *frames, qint64 count)
{
    const auto size = static_cast<qint64>(sizeof(float)) * m_format.channels;
    qint64 done = 0;
    int result = MPG123_OK;
    while (done < count && (result == MPG123_OK || result == MPG123_NEW_FORMAT)) {
        std::size_t bytes = 0;
        result = mpg123().read(m_handle.get(), frames + done * m_format.channels,
                               static_cast<std::size_t>((count - done) * size), &bytes);
        done += static_cast<qint64>(bytes) / size;
    }
    return done;
}
} // namespace

std::unique_ptr<SongDecoder> openMp3(const QByteArray &hostPath)
{
    SoundFormat format;
    Mpg123Handle handle = mpg123().isComplete() ? openHandle(hostPath, format) : nullptr;
    return handle ? std::make_unique<Mp3Decoder>(std::move(handle), format, hostPath) : nullptr;
}
