// SPDX-License-Identifier: GPL-3.0-or-later
// Processes: the one instance of the player, the signals that end it, and what else runs on the system.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QObject;

/// One player a user: the first one holds a lock for as long as it runs, however it ends. Where none can be had, which
/// is told in one line on stderr, each player is the first.
class SingleInstance
{
public:
    SingleInstance();
    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;
    ~SingleInstance();

    /// Does another player of this user run already? Asked once, early.
    bool isPreviousRunning() const { return m_isHeldByAnother; }

private:
    int m_lock; // A file's handle; the system lets the lock go with it.
    bool m_isHeldByAnother = false;
};

/// From now on, and as long as the listener lives, the first signal of a terminal, a shell or a system going down calls
/// `end` from the event loop, in place of ending the program on the spot. The same signal again does that.
void onEndingSignals(QObject *listener, const std::function<void()> &end);

/// Writing to a terminal, a pipe or a server that has gone away is an error from now on, and no longer ends the
/// program. Nothing that is opened later takes the place of a standard file that is closed: what is meant for the
/// terminal would be sent to the screen or written into a song.
void outliveReaders();

/// Name and version of the system and of its kernel, as people write them.
QString systemVersionText();

/// The running processes the player may see, "number  name" each, by number. Empty where the system does not say.
QStringList runningProcesses();
