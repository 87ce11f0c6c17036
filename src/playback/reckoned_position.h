// SPDX-License-Identifier: GPL-3.0-or-later
// A position in a song that was told once and is reckoned from then on: it moves on by itself while the song plays.
#pragma once

#include <QElapsedTimer>

class ReckonedPosition
{
public:
    /// The position is known, in seconds.
    void tell(double seconds);

    /// The song plays on from now on, or stands.
    void setRunning(bool running);

    double seconds() const;

private:
    double m_base = 0;
    QElapsedTimer m_sinceBase; // Invalid while the song stands.
};
