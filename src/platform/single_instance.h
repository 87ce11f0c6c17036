// SPDX-License-Identifier: GPL-3.0-or-later
// One player a user: the first one holds a lock for as long as it runs.
#pragma once

#include <QLockFile>

class SingleInstance
{
public:
    SingleInstance();

    /// Does another player of this user run already? Asked once, early.
    bool isPreviousRunning() const { return !m_held; }

private:
    QLockFile m_lock;
    bool m_held = false;
};
