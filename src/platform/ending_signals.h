// SPDX-License-Identifier: GPL-3.0-or-later
// The wishes of a terminal, a shell or a system going down that the program end.
#pragma once

#include <functional>

class QObject;

/// From now on, and as long as the listener lives, the first such wish calls `end` from the event loop, in place of
/// ending the program on the spot. The same wish again does that.
void onEndingSignals(QObject *listener, const std::function<void()> &end);
