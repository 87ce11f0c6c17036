// Where a listener takes the song to be: nobody tells it the position all the time, it was told once and lets it run on
// while the song plays.
#pragma once

#include <QElapsedTimer>

class ReckonedPosition
{
public:
    /// The listener learns the position.
    void tell(double seconds);

    /// The song plays on from now on, or stands.
    void setRunning(bool running);

    double seconds() const;

    /// Is the listener so wrong that it must be told?
    bool isFarFrom(double seconds) const;

private:
    double m_base = 0;
    QElapsedTimer m_sinceBase; // Invalid while the song stands.
};
