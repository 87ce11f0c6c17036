// SPDX-License-Identifier: GPL-3.0-or-later
// The play list's total length from the texts of its play times.
#pragma once

#include "base/last_error.h"

#include <QStringList>

#include <cstdint>
#include <optional>

struct PlayTimeSum {
    std::int32_t seconds = 0;         // The total, or as far as it was counted before the error.
    std::optional<ErrorRecord> error; // 13, type mismatch: a time whose minutes or seconds are no number.
};

/// Adds times to startSeconds, up to the first empty one. A time counts with four characters (m:ss) or five (mm:ss);
/// one of any other length counts as much as the time before it did. The total is clamped to 32 bits.
PlayTimeSum addPlayTimes(const QStringList &times, std::int32_t startSeconds = 0);
