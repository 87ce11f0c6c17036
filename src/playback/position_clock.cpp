// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/position_clock.h"

void PositionClock::set(double seconds)
{
    m_base = seconds;
    if (m_sinceBase.isValid())
        m_sinceBase.start();
}

void PositionClock::setRunning(bool running)
{
    m_base = seconds();
    if (running)
        m_sinceBase.start();
    else
        m_sinceBase.invalidate();
}

double PositionClock::seconds() const
{
    return m_base + (m_sinceBase.isValid() ? static_cast<double>(m_sinceBase.nsecsElapsed()) / 1e9 : 0);
}
