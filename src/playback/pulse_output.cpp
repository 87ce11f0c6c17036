// SPDX-License-Identifier: GPL-3.0-or-later
// All talk with the server happens in wait(). Its callbacks only set flags; what they mean is worked out afterwards.
#include "playback/pulse_output.h"

#include "playback/pulse_library.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr double deafSeconds = 0.025; // What is heard sooner than this can no longer be replaced.
constexpr double startSeconds = 1;    // So much lies ready before the first is heard: less leads to gaps at once.
constexpr int trialMs = 2000;         // Between two looks for a server.
constexpr int timingMs = 500;
constexpr int settlingMs = 1000; // So long a device's delay may change after the start, and is asked for more often.
constexpr int settlingStepMs = 150;
constexpr char deviceOfNoSound[] = "auto_null"; // What servers put in the place of the last device.

void forget(pa_operation *operation)
{
    if (operation)
        pulse().operation_unref(operation);
}

void setFlag(void *flag)
{
    *static_cast<bool *>(flag) = true;
}

void endStream(pa_stream *stream, int, void *)
{
    pulse().stream_disconnect(stream);
    pulse().stream_unref(stream);
}
} // namespace

PulseOutput::PulseOutput()
{
    if (pulse().isComplete()) {
        m_loop = pulse().mainloop_new();
        connectServer();
    } else {
        m_reach = Reach::NoServer;
    }
}

PulseOutput::~PulseOutput()
{
    if (!m_loop)
        return;
    disconnectServer();
    pulse().mainloop_free(m_loop);
}

void PulseOutput::connectServer()
{
    pa_proplist *properties = pulse().proplist_new();
    pulse().proplist_sets(properties, PA_PROP_APPLICATION_ID, "kiv-mp3");
    pulse().proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "kiv-mp3");
    pulse().proplist_sets(properties, PA_PROP_MEDIA_ROLE, "music");
    m_context = pulse().context_new_with_proplist(pulse().mainloop_get_api(m_loop), "KiV Mp3", properties);
    pulse().proplist_free(properties);
    const auto flags = m_reach == Reach::Unknown ? PA_CONTEXT_NOFLAGS : PA_CONTEXT_NOAUTOSPAWN;
    pulse().context_connect(m_context, nullptr, flags, nullptr);
}

void PulseOutput::disconnectServer()
{
    closeStream();
    if (pa_context *context = std::exchange(m_context, nullptr)) {
        pulse().context_disconnect(context);
        pulse().context_unref(context);
    }
}

void PulseOutput::open(const SoundFormat &format, const QString &title)
{
    m_title = title.toUtf8();
    if (m_isReady && format != m_format) { // The end of the song before is still to be heard.
        forget(pulse().stream_drain(m_stream, endStream, nullptr));
        m_stream = nullptr;
        m_isReady = false;
    } else if (m_isReady) {
        forget(pulse().stream_set_name(m_stream, m_title.constData(), nullptr, nullptr));
    }
    if (m_loop && (!m_context || !PA_CONTEXT_IS_GOOD(pulse().context_get_state(m_context)))) {
        disconnectServer();
        m_reach = Reach::Unknown;
        connectServer();
    }
    const bool isRunning = m_isReady && m_clock.isRunning();
    SilentOutput::open(format, title);
    m_clock.setRunning(isRunning || (m_reach != Reach::Unknown && !m_isReady && !m_isPaused));
}

void PulseOutput::close()
{
    SilentOutput::close();
    closeStream();
}

void PulseOutput::openStream()
{
    const pa_sample_spec sample{PA_SAMPLE_FLOAT32NE, static_cast<std::uint32_t>(m_format.rate),
                                static_cast<std::uint8_t>(m_format.channels)};
    pa_channel_map map;
    pulse().channel_map_init_extend(&map, sample.channels, PA_CHANNEL_MAP_WAVEEX);
    m_stream = pulse().stream_new(m_context, m_title.constData(), &sample, &map);
    if (!m_stream)
        return lose(Reach::NoDevice);
    const auto setOld = [](pa_stream *, void *flag) { setFlag(flag); };
    pulse().stream_set_started_callback(m_stream, setOld, &m_isTimingOld);
    pulse().stream_set_moved_callback(m_stream, setOld, &m_isTimingOld);
    pulse().stream_set_suspended_callback(m_stream, setOld, &m_isTimingOld);
    const auto bytes = [&](double time) { return static_cast<std::uint32_t>(frames(time) * m_format.frameSize()); };
    const pa_buffer_attr buffer{UINT32_MAX, bytes(readySeconds), bytes(startSeconds), bytes(refillSeconds), UINT32_MAX};
    const auto flags = PA_STREAM_ADJUST_LATENCY | (m_isPaused ? PA_STREAM_START_CORKED : PA_STREAM_NOFLAGS);
    pulse().stream_connect_playback(m_stream, nullptr, &buffer, static_cast<pa_stream_flags_t>(flags), nullptr,
                                    nullptr);
}

void PulseOutput::closeStream()
{
    m_isReady = false;
    if (m_stream)
        endStream(std::exchange(m_stream, nullptr), 0, nullptr);
}

// What was written before is written again, from what is to be heard now.
void PulseOutput::streamOpened()
{
    m_clock.setRunning(false); // Until the server begins.
    m_isReady = true;
    m_isLost = m_written > 0;
    m_start = m_place = m_end = heard();
    m_isTimingOld = true;
    m_sinceStart.start();
}

void PulseOutput::lose(Reach reach)
{
    m_reach = reach;
    m_clock.setRunning(!m_isPaused && m_format.rate > 0);
    disconnectServer();
    m_sinceTrial.start();
}

void PulseOutput::setPaused(bool on)
{
    m_isPaused = on;
    if (m_isReady) {
        forget(pulse().stream_cork(m_stream, on, nullptr, nullptr));
        m_isTimingOld = true;
    }
    m_clock.setRunning(!on && m_reach != Reach::Unknown && !m_isReady && m_format.rate > 0);
}

qint64 PulseOutput::room() const
{
    if (!m_isReady)
        return m_reach == Reach::Unknown ? 0 : SilentOutput::room();
    const auto bytes = static_cast<qint64>(pulse().stream_writable_size(m_stream));
    return std::max<qint64>(bytes, 0) / m_format.frameSize() + std::max<qint64>(m_end - m_written, 0);
}

void PulseOutput::write(const float *frames, qint64 count)
{
    m_isFinished = false;
    if (!m_isReady)
        return SilentOutput::write(frames, count);
    send(frames, count);
    m_written += count;
    if (!m_sinceTiming.isValid() || m_sinceTiming.elapsed() > timingMs)
        m_isTimingOld = true;
}

void PulseOutput::send(const float *frames, qint64 count)
{
    const bool isNext = m_place == m_written;
    const qint64 offset = isNext ? 0 : (m_written - m_start) * m_format.frameSize();
    pulse().stream_write(m_stream, frames, static_cast<std::size_t>(count * m_format.frameSize()), nullptr, offset,
                         isNext ? PA_SEEK_RELATIVE : PA_SEEK_ABSOLUTE);
    m_place = m_written + count;
    m_end = std::max(m_end, m_place);
}

// A song that ended in the place of a longer rest: the rest is not to be heard.
void PulseOutput::silenceRest()
{
    if (!m_isReady || m_end <= m_written)
        return;
    const std::vector<float> silence(static_cast<std::size_t>((m_end - m_written) * m_format.channels));
    send(silence.data(), m_end - m_written);
    m_end = m_written;
}

qint64 PulseOutput::takeBack()
{
    const qint64 deaf = m_isReady && m_clock.isRunning() ? frames(deafSeconds) : 0;
    const qint64 taken = std::max<qint64>(pending() - deaf, 0);
    m_written -= taken;
    return taken;
}

void PulseOutput::wait(int ms)
{
    if (!m_loop)
        return SilentOutput::wait(ms);
    updateConnection(); // A song may have been opened on a server that is there already.
    silenceRest();
    if (m_isReady && std::exchange(m_isFinished, false))
        forget(pulse().stream_trigger(m_stream, nullptr, nullptr));
    if (std::exchange(m_isTimingOld, false))
        askTiming();
    const int turn = msUntilTurn(ms);
    if (pulse().mainloop_prepare(m_loop, turn < 0 ? -1 : turn * 1000) >= 0 && pulse().mainloop_poll(m_loop) >= 0)
        pulse().mainloop_dispatch(m_loop);
    updateConnection();
    if (std::exchange(m_isTimingNew, false) && m_isReady)
        updateClock();
}

void PulseOutput::wake()
{
    if (m_loop)
        pulse().mainloop_wakeup(m_loop);
    else
        SilentOutput::wake();
}

int PulseOutput::msUntilTurn(int ms) const
{
    const auto sooner = [](int one, int other) { return one < 0 ? other : std::min(one, other); };
    if (m_isReady)
        return m_clock.isRunning() && m_sinceStart.elapsed() < settlingMs ? sooner(ms, settlingStepMs) : ms;
    if (m_reach == Reach::Unknown || m_format.rate == 0)
        return ms;
    return sooner(msToWait(ms), m_sinceTrial.isValid() ? trialMs : 0);
}

void PulseOutput::updateConnection()
{
    if (m_format.rate == 0 && m_reach != Reach::Unknown)
        return;
    if (!m_context) {
        if (!m_sinceTrial.isValid() || m_sinceTrial.elapsed() >= trialMs)
            connectServer();
        return;
    }
    const pa_context_state_t context = pulse().context_get_state(m_context);
    if (!PA_CONTEXT_IS_GOOD(context))
        return lose(Reach::NoServer);
    if (context != PA_CONTEXT_READY || m_format.rate == 0)
        return;
    if (!m_stream)
        return openStream();
    const pa_stream_state_t stream = pulse().stream_get_state(m_stream);
    if (!PA_STREAM_IS_GOOD(stream))
        return lose(Reach::NoDevice);
    if (stream != PA_STREAM_READY)
        return;
    if (!m_isReady)
        streamOpened();
    const char *device = pulse().stream_get_device_name(m_stream);
    m_reach = qstrcmp(device, deviceOfNoSound) == 0 ? Reach::NoDevice : Reach::Heard;
    if (m_clock.isRunning() && m_sinceStart.elapsed() < settlingMs && m_sinceTiming.elapsed() >= settlingStepMs)
        m_isTimingOld = true;
}

void PulseOutput::askTiming()
{
    if (!m_isReady)
        return;
    m_sinceTiming.start();
    forget(pulse().stream_update_timing_info(
        m_stream, [](pa_stream *, int, void *flag) { setFlag(flag); }, &m_isTimingNew));
}

void PulseOutput::updateClock()
{
    const pa_timing_info *timing = pulse().stream_get_timing_info(m_stream);
    pa_usec_t time = 0;
    if (!timing || pulse().stream_get_time(m_stream, &time) < 0)
        return;
    m_clock.set(seconds(m_start) + static_cast<double>(time) / 1e6);
    m_clock.setRunning(timing->playing && !m_isPaused);
}

std::unique_ptr<SoundOutput> makePulseOutput()
{
    return std::make_unique<PulseOutput>();
}
