// SPDX-License-Identifier: GPL-3.0-or-later
// Seconds as people read them.
#pragma once

#include <QString>

#include <cstdint>

/// m:ss, or h:mm:ss from an hour on. Negative seconds divide toward zero and keep their sign in each place ("0:-5").
QString FormatPlayTime(std::int32_t seconds);
