// SPDX-License-Identifier: GPL-3.0-or-later
// A position in a song that is set now and then and moves on with the clock while the song plays.
#pragma once

#include <QElapsedTimer>

constexpr double visibleJumpSeconds = 0.2; // A position that is off by more is shown anew at once.

class PositionClock
{
public:
    /// The position is this many seconds now.
    void set(double seconds);

    /// The position moves on from now on, or stays.
    void setRunning(bool running);

    bool isRunning() const { return m_sinceBase.isValid(); }
    double seconds() const;

private:
    double m_base = 0;
    QElapsedTimer m_sinceBase; // Invalid while the position stays.
};
