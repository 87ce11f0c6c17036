// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/timer.h"

#include <algorithm>

namespace
{
constexpr int screenPaceMs = 16;
constexpr int preciseBelowMs = 50;
} // namespace

Timer::Timer(QObject *parent, const QString &name, int intervalMs, Kind kind)
    : QObject(parent), m_intervalMs(intervalMs), m_kind(kind)
{
    setObjectName(name);
    connect(&m_clock, &QTimer::timeout, this, &Timer::runDown);
}

void Timer::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    wait(pace());
}

void Timer::setResting(bool resting)
{
    if (m_kind == Kind::OneShot || m_resting == resting)
        return;
    m_resting = resting;
    wait(0);
}

void Timer::sleepFor(int ms)
{
    m_sleepMs = ms;
}

void Timer::trigger()
{
    wait(0);
}

void Timer::runDown()
{
    if (m_kind == Kind::OneShot) {
        m_enabled = false;
        m_clock.stop();
    }
    const int waited = m_clock.interval();
    m_sleepMs = 0;
    m_restarted = false;
    Q_EMIT tick();
    const int next = std::max(pace(), m_sleepMs);
    if (m_enabled && m_kind == Kind::Repeating && !m_restarted && next != waited)
        wait(next); // Else the clock runs on by itself, which is cheaper.
}

// Starts the clock anew, or stops it when the timer is off or rests.
void Timer::wait(int ms)
{
    m_restarted = true;
    if (!m_enabled || m_resting) {
        m_clock.stop();
        return;
    }
    // A coarse clock runs up to a twentieth too early; a tick waited for then shows nothing new and must wait again.
    m_clock.setTimerType(ms < preciseBelowMs || m_sleepMs > 0 ? Qt::PreciseTimer : Qt::CoarseTimer);
    m_clock.start(ms);
}

int Timer::pace() const
{
    if (m_kind == Kind::OneShot)
        return m_intervalMs > 1 ? m_intervalMs : 0;
    return std::max(m_intervalMs, screenPaceMs);
}
