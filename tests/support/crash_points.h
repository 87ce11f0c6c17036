// SPDX-License-Identifier: GPL-3.0-or-later
// Work on files that dies, or meets a full disk, at a chosen moment: before its n-th call that changes the disk. Or a
// disk that cannot be read: at the n-th call that asks it. Linked into a test, this stands in front of the C library's
// calls.
#pragma once

#include <functional>

enum class Fault {
    Death,    // The process ends there, as by a power cut.
    DiskFull, // That call fails, the later ones do what they should.
    NoRead,   // That question fails, the later ones do not.
};

enum class Fate {
    Met,     // The fault was met.
    Spared,  // The work had fewer steps.
    Crashed, // The work ended otherwise than by the fault.
};

/// Runs work in a child process, the fault at its step-th change or question, counted from 1.
Fate runWithFault(Fault fault, int step, const std::function<void()> &work);

/// Runs check in a child process that has no rights beyond those of an ordinary user, even when root runs the tests.
bool holdsForOrdinaryUser(const std::function<bool()> &check);
