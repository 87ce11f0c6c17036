// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/sound_thread.h"

#include "playback/media_engine.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int rampsASecond = 100;   // A change of loudness takes a hundredth of a second, so that it does not click.
constexpr double endSeconds = 0.03; // So much is still to be heard when the end is announced: the next song follows on.
constexpr int leavingMs = 1000;     // So long the output waits for a next song.
constexpr int patienceMs = 1500;

float gainOf(int hundredthsOfDecibel)
{
    return hundredthsOfDecibel <= -10000 ? 0 : static_cast<float>(std::pow(10, hundredthsOfDecibel / 2000.0));
}

std::unique_ptr<SongDecoder> openSong(const QByteArray &path)
{
    return path.toLower().endsWith(".wav") ? openWav(path) : openMp3(path);
}
} // namespace

void SoundThread::want(const std::function<void(Wanted &)> &change)
{
    const QMutexLocker lock(&m_mutex);
    change(m_wanted);
    if (m_output)
        m_output->wake();
}

SoundThread::Facts SoundThread::facts() const
{
    const QMutexLocker lock(&m_mutex);
    return m_facts;
}

bool SoundThread::finish()
{
    want([](Wanted &wanted) { wanted.isOver = true; });
    return wait(patienceMs);
}

void SoundThread::run()
{
    const auto setOutput = [this](std::unique_ptr<SoundOutput> output) {
        const QMutexLocker lock(&m_mutex);
        m_output.swap(output);
        return m_wanted;
    };
    const auto wanted = [this] {
        const QMutexLocker lock(&m_mutex);
        return m_wanted;
    };
    setOutput(makeSoundOutput());
    for (Wanted now = wanted(); !now.isOver; now = wanted()) {
        follow(now);
        if (m_decoder)
            fill();
        else if (m_leaving && m_leaving->hasExpired())
            closeOutput();
        publish();
        m_output->wait(msToWait());
    }
    m_output->close();
    setOutput(nullptr);
}

void SoundThread::follow(const Wanted &wanted)
{
    if (wanted.song != m_done.song)
        changeSong(wanted);
    if (m_decoder && wanted.seek != m_done.seek)
        seek(wanted.place);
    if (m_decoder && wanted.volume != m_done.volume)
        setGain(gainOf(wanted.volume));
    if (m_decoder && wanted.isPaused != m_done.isPaused)
        m_output->setPaused(wanted.isPaused);
    m_done = wanted;
}

void SoundThread::changeSong(const Wanted &wanted)
{
    std::unique_ptr<SongDecoder> decoder = wanted.hostPath.isEmpty() ? nullptr : openSong(wanted.hostPath);
    const bool isAlike = decoder && decoder->format() == m_format;
    const bool isFading = isAlike && m_decoder;
    if (isFading)
        leave();
    else if (!m_leaving || !decoder)
        m_output->close();
    if (!isAlike) {
        m_ready.clear();
        m_sent = 0;
    }
    m_ramp = {m_sent, isFading ? 0 : gainOf(wanted.volume), gainOf(wanted.volume)};
    m_decoder = std::move(decoder);
    m_leaving.reset();
    m_isAtEnd = m_isRefined = m_isServerKnown = false;
    m_next = m_first = 0;
    m_done = wanted;
    m_done.seek = 0;
    m_format = m_decoder ? m_decoder->format() : SoundFormat();
    if (!m_decoder && !wanted.hostPath.isEmpty())
        Q_EMIT declined(wanted.song);
    if (!m_decoder)
        return;
    m_output->setPaused(wanted.isPaused);
    m_output->open(m_format, wanted.title);
}

void SoundThread::seek(double place)
{
    const double length = static_cast<double>(m_decoder->length()) / m_format.rate;
    const qint64 frame = qRound64(seekPlace(place, length) * m_format.rate);
    m_isAtEnd = !m_decoder->seek(frame);
    leave();
    m_next = m_first = frame;
}

// What was about to be heard fades away, and what comes in its place fades in.
void SoundThread::leave()
{
    const qint64 taken = takeBack();
    const qint64 fading = std::min<qint64>(taken, m_format.rate / rampsASecond);
    const float gain = m_ramp.to;
    const std::size_t place = m_ready.size() - static_cast<std::size_t>(taken * m_format.channels);
    m_ramp = {m_sent, gainAt(m_sent), 0};
    send(place, fading);
    m_ready.resize(place + static_cast<std::size_t>(fading * m_format.channels));
    m_ramp = {m_sent, m_sent > 0 ? 0 : gain, gain};
}

// The new loudness is heard as soon as the output can replace what lies ready.
void SoundThread::setGain(float gain)
{
    const qint64 taken = takeBack();
    m_ramp = {m_sent, gainAt(m_sent), gain};
    send(m_ready.size() - static_cast<std::size_t>(taken * m_format.channels), taken);
}

qint64 SoundThread::takeBack()
{
    const qint64 taken = std::min(m_output->takeBack(), readyFrames());
    m_sent -= taken;
    return taken;
}

void SoundThread::fill()
{
    if (m_output->takeLoss())
        setGain(m_ramp.to);
    const qint64 room = m_isAtEnd ? 0 : m_output->room();
    if (room > 0)
        decode(room);
    if (!m_isRefined && m_output->isRunning())
        m_isRefined = !m_decoder->refineLength();
    if (m_isAtEnd && !m_done.isPaused && m_output->pending() <= qRound64(endSeconds * m_format.rate))
        endSong();
}

void SoundThread::decode(qint64 count)
{
    forgetHeard();
    const std::size_t place = m_ready.size();
    m_ready.resize(place + static_cast<std::size_t>(count * m_format.channels));
    const qint64 done = m_decoder->read(m_ready.data() + place, count);
    m_ready.resize(place + static_cast<std::size_t>(done * m_format.channels));
    m_next += done;
    send(place, done);
    m_isAtEnd = done < count;
    if (m_isAtEnd)
        m_output->finish();
}

void SoundThread::forgetHeard()
{
    const qint64 heard = std::max<qint64>(readyFrames() - m_output->pending() - m_format.rate / rampsASecond, 0);
    m_ready.erase(m_ready.begin(), m_ready.begin() + heard * m_format.channels);
}

// Sends frames of m_ready at the loudness they are to have.
void SoundThread::send(std::size_t place, qint64 count)
{
    if (count == 0)
        return;
    m_output->write(atLoudness(m_ready.data() + place, count), count);
    m_sent += count;
}

// The frames to send next at their loudness: themselves when that is full.
const float *SoundThread::atLoudness(const float *frames, qint64 count)
{
    const qint64 rampEnd = m_ramp.start + m_format.rate / rampsASecond + 1;
    const qint64 ramped = std::clamp<qint64>(rampEnd - m_sent, 0, count);
    if (ramped == 0 && m_ramp.to == 1)
        return frames;
    m_scaled.resize(static_cast<std::size_t>(count * m_format.channels));
    float *to = m_scaled.data();
    const float *from = frames;
    for (qint64 frame = m_sent; frame < m_sent + ramped; ++frame) {
        const float gain = gainAt(frame);
        for (int channel = 0; channel < m_format.channels; ++channel)
            *to++ = *from++ * gain;
    }
    std::transform(from, frames + count * m_format.channels, to, [this](float sample) { return sample * m_ramp.to; });
    return m_scaled.data();
}

float SoundThread::gainAt(qint64 frame) const
{
    const auto way = static_cast<float>(frame - m_ramp.start) * rampsASecond / static_cast<float>(m_format.rate);
    return m_ramp.from + (m_ramp.to - m_ramp.from) * std::clamp(way, 0.0F, 1.0F);
}

void SoundThread::endSong()
{
    m_decoder.reset();
    m_leaving.emplace(leavingMs);
    Q_EMIT ended(m_done.song);
}

void SoundThread::closeOutput()
{
    m_leaving.reset();
    m_output->close();
    m_format = {};
    m_ready = {};
    m_sent = 0;
}

int SoundThread::msToWait() const
{
    if (m_leaving)
        return static_cast<int>(m_leaving->remainingTime());
    if (!m_decoder)
        return -1;
    if (!m_isRefined && m_output->isRunning())
        return 0;
    if (m_isAtEnd && m_output->isRunning())
        return static_cast<int>(m_output->pending() * 1000 / m_format.rate - qint64(endSeconds * 1000)) + 1;
    return -1;
}

void SoundThread::publish()
{
    Facts facts;
    if (m_decoder) {
        const auto seconds = [this](qint64 frames) { return static_cast<double>(frames) / m_format.rate; };
        facts.song = m_done.song;
        facts.seek = m_done.seek;
        facts.clock.set(seconds(m_next - m_output->pending()));
        facts.clock.setRunning(m_output->isRunning());
        facts.first = seconds(m_first);
        facts.duration = seconds(m_decoder->length());
        facts.isSilent = m_output->reach() > SoundOutput::Reach::Heard;
    }
    const SoundOutput::Reach reach = m_output->reach(); // The signal comes before anybody sees that it is silent.
    if (m_decoder && reach != SoundOutput::Reach::Unknown && !std::exchange(m_isServerKnown, true) &&
        reach == SoundOutput::Reach::NoServer)
        Q_EMIT serverMissed(facts.song);
    QMutexLocker lock(&m_mutex);
    const Facts before = std::exchange(m_facts, facts);
    lock.unlock();
    if (facts.song != before.song || facts.seek != before.seek || facts.duration != before.duration ||
        facts.isSilent != before.isSilent || facts.clock.isRunning() != before.clock.isRunning() ||
        std::abs(facts.clock.seconds() - before.clock.seconds()) > visibleJumpSeconds)
        Q_EMIT factsChanged();
}
