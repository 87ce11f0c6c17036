// SPDX-License-Identifier: GPL-3.0-or-later
// A timer without a window. A repeating one with an interval of 1 ms ticks at the screen's pace, and rests while nobody
// can see what it does: an idle player wakes the processor for nothing. A one-shot timer switches itself off and ticks
// as soon as the current handler has returned.
#pragma once

#include <QTimer>

class Timer : public QObject
{
    Q_OBJECT

public:
    enum class Kind { Repeating, OneShot };

    Timer(QObject *parent, const QString &name, int intervalMs, Kind kind = Kind::Repeating);

    /// Enabling an enabled timer changes nothing; a repeating one ticks first after one interval.
    void setEnabled(bool enabled);
    bool Enabled() const { return m_enabled; }

    int Interval() const { return m_intervalMs; }

    /// While it rests an enabled timer does not tick; when the rest ends it ticks at once. One-shot timers never rest.
    void setResting(bool resting);

    /// Asked for in the tick's handler: a tick before that time would show nothing new.
    void sleepFor(int ms);

    /// Something changed: an enabled timer that does not rest ticks at the next chance.
    void trigger();

Q_SIGNALS:
    void tick();

private:
    void runDown();
    void wait(int ms);
    int pace() const;

    QTimer m_clock;
    int m_intervalMs;
    Kind m_kind;
    bool m_enabled = false;
    bool m_resting = false;
    bool m_restarted = false; // While a tick is handled: the clock has been set anew.
    int m_sleepMs = 0;
};
