// SPDX-License-Identifier: GPL-3.0-or-later
// Plays to nobody, in real time.
#pragma once

#include "playback/position_clock.h"
#include "playback/sound_output.h"

#include <QSemaphore>

class SilentOutput : public SoundOutput
{
public:
    void open(const SoundFormat &format, const QString &title) override;
    void close() override;
    void setPaused(bool on) override;
    qint64 room() const override;
    void write(const float *frames, qint64 count) override;
    qint64 pending() const override;
    qint64 takeBack() override;
    bool isRunning() const override { return m_clock.isRunning(); }
    void wait(int ms) override;
    void wake() override;

protected:
    static constexpr double readySeconds = 3;
    static constexpr double refillSeconds = 1;

    qint64 frames(double seconds) const { return qRound64(seconds * m_format.rate); }
    double seconds(qint64 frames) const { return static_cast<double>(frames) / m_format.rate; }
    qint64 heard() const { return qMin(frames(m_clock.seconds()), m_written); }
    int msToWait(int ms) const;

    SoundFormat m_format;
    qint64 m_written = 0;  // Frames since it was opened with this format.
    PositionClock m_clock; // What of them has been heard, in seconds.
    bool m_isPaused = false;

private:
    QSemaphore m_wakeups;
};
