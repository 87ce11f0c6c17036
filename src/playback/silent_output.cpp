// SPDX-License-Identifier: GPL-3.0-or-later
// The outputs that need no sound server, and which one is taken.
#include "playback/silent_output.h"

#include <QFile>

#include <algorithm>
#include <vector>

void SilentOutput::open(const SoundFormat &format, const QString &)
{
    if (m_format != format) {
        m_format = format;
        m_written = 0;
        m_clock.set(0);
    }
    m_clock.setRunning(!m_isPaused);
}

void SilentOutput::close()
{
    m_clock.setRunning(false);
    m_format = {};
}

void SilentOutput::setPaused(bool on)
{
    m_isPaused = on;
    m_clock.setRunning(!on && m_format.rate > 0);
}

qint64 SilentOutput::room() const
{
    return pending() <= frames(readySeconds - refillSeconds) ? frames(readySeconds) - pending() : 0;
}

void SilentOutput::write(const float *, qint64 count)
{
    if (pending() == 0)
        m_clock.set(seconds(m_written)); // Time without frames does not count.
    m_written += count;
}

qint64 SilentOutput::pending() const
{
    return m_written - heard();
}

qint64 SilentOutput::takeBack()
{
    const qint64 taken = pending();
    m_written -= taken;
    return taken;
}

// Until room() has grown, if that is sooner.
int SilentOutput::msToWait(int ms) const
{
    if (!isRunning())
        return ms;
    const double untilRoom = seconds(pending()) - (readySeconds - refillSeconds);
    const int needed = std::max(0, static_cast<int>(untilRoom * 1000) + 1);
    return ms < 0 ? needed : std::min(ms, needed);
}

void SilentOutput::wait(int ms)
{
    m_wakeups.tryAcquire(1, msToWait(ms));
}

void SilentOutput::wake()
{
    m_wakeups.release();
}

namespace
{
class RecordedOutput : public SoundOutput
{
public:
    explicit RecordedOutput(const QString &path) : m_file(path) { m_file.open(QFile::Append | QFile::Unbuffered); }

    void open(const SoundFormat &format, const QString &) override { m_format = format; }
    void close() override { m_format = {}; }
    void setPaused(bool on) override { m_isPaused = on; }
    qint64 room() const override { return m_isPaused || m_format.rate == 0 ? 0 : m_format.rate / 10; }
    void write(const float *frames, qint64 count) override;
    qint64 pending() const override { return 0; }
    qint64 takeBack() override { return 0; }
    bool isRunning() const override { return !m_isPaused && m_format.rate > 0; }
    void wait(int ms) override { m_wakeups.tryAcquire(1, room() > 0 ? 0 : ms); }
    void wake() override { m_wakeups.release(); }

private:
    static constexpr int rate = 44100;

    QFile m_file;
    SoundFormat m_format;
    bool m_isPaused = false;
    double m_place = 0; // Of the next sample to record, in the frames being written.
    QSemaphore m_wakeups;
};

// Other rates are brought to the recording's by taking the frame that is due.
void RecordedOutput::write(const float *frames, qint64 count)
{
    std::vector<float> samples;
    for (; m_place < static_cast<double>(count); m_place += static_cast<double>(m_format.rate) / rate) {
        const float *frame = frames + static_cast<qint64>(m_place) * m_format.channels;
        samples.insert(samples.end(), {frame[0], frame[m_format.channels > 1 ? 1 : 0]});
    }
    m_place -= static_cast<double>(count);
    m_file.write(reinterpret_cast<const char *>(samples.data()), std::ssize(samples) * qint64{sizeof(float)});
}
} // namespace

std::unique_ptr<SoundOutput> makeSoundOutput()
{
    const QByteArray wanted = qgetenv("KIV_MP3_SOUND");
    if (wanted == "null")
        return std::make_unique<SilentOutput>();
    if (wanted.startsWith("pcm:"))
        return std::make_unique<RecordedOutput>(QFile::decodeName(wanted.mid(4)));
    return makePulseOutput();
}
