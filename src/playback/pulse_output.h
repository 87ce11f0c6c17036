// SPDX-License-Identifier: GPL-3.0-or-later
// The sound server: PulseAudio, or PipeWire, which offers the same. It is filled far ahead, which is thrifty; what lies
// ready there can be replaced, so that changes are heard at once. Where there is no server or no device the time goes
// on silently, and the song sounds again as soon as there is one.
#pragma once

#include "playback/silent_output.h"

#include <QElapsedTimer>

#include <utility>

struct pa_context;
struct pa_mainloop;
struct pa_stream;

class PulseOutput : public SilentOutput
{
public:
    PulseOutput();
    ~PulseOutput() override;
    PulseOutput(const PulseOutput &) = delete;
    PulseOutput &operator=(const PulseOutput &) = delete;

    void open(const SoundFormat &format, const QString &title) override;
    void close() override;
    void setPaused(bool on) override;
    qint64 room() const override;
    void write(const float *frames, qint64 count) override;
    void finish() override { m_isFinished = true; }
    qint64 takeBack() override;
    bool takeLoss() override { return std::exchange(m_isLost, false); }
    Reach reach() const override { return m_reach; }
    void wait(int ms) override;
    void wake() override;

private:
    void connectServer();
    void disconnectServer();
    void openStream();
    void closeStream();
    void streamOpened();
    void lose(Reach reach);
    void updateConnection();
    void updateClock();
    void askTiming();
    void send(const float *frames, qint64 count);
    void silenceRest();
    int msUntilTurn(int ms) const;

    pa_mainloop *m_loop = nullptr;
    pa_context *m_context = nullptr;
    pa_stream *m_stream = nullptr;
    bool m_isReady = false; // The stream is there.
    bool m_isLost = false;  // What was written has not reached the stream.
    bool m_isFinished = false;
    Reach m_reach = Reach::Unknown;
    QByteArray m_title;
    qint64 m_start = 0; // The frame the stream began with.
    qint64 m_place = 0; // Where the server takes the next frame to belong.
    qint64 m_end = 0;   // Behind the last frame that the server has.

    bool m_isTimingOld = false; // Set by the server, as the next one.
    bool m_isTimingNew = false;
    QElapsedTimer m_sinceTiming; // Since the server was last asked what has been heard.
    QElapsedTimer m_sinceStart;  // Since the stream began to be heard.
    QElapsedTimer m_sinceTrial;  // Since a server or device was last missed.
};
