// SPDX-License-Identifier: GPL-3.0-or-later
// A breath for the window system inside a long loop.
#pragma once

/// Lets queued window events run 100 times in a row.
void PumpEvents();
