// SPDX-License-Identifier: GPL-3.0-or-later
// Narrowing and rounding numbers, and reading them from texts.
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// value rounded to a whole number, halves to the even neighbour; 0 for what is not a number; clamped to 32 bits.
std::int32_t roundHalfEven(double value);

/// value rounded as above and clamped to the 16 bits that the sliders count in.
std::int16_t roundToInt16(double value);

/// The low 32 bits of value, as a signed number: a product of a long file's length wraps.
std::int32_t wrapToInt32(std::int64_t value);

/// The number a text begins with, blanks passed over ("131 Kbit" gives 131); 0 when it begins with none.
double numericValue(const QString &text);

/// The whole text as a whole number; nothing when it is no number or beyond 32 bits. Blanks around it are allowed.
std::optional<std::int32_t> wholeNumber(const QString &text);
