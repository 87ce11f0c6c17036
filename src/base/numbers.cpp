// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
template<class Whole>
Whole roundWithin(double value)
{
    if (std::isnan(value))
        return 0;
    const double lowest = std::numeric_limits<Whole>::min();
    const double highest = std::numeric_limits<Whole>::max();
    return static_cast<Whole>(std::clamp(std::nearbyint(value), lowest, highest));
}
} // namespace

std::int32_t roundHalfEven(double value)
{
    return roundWithin<std::int32_t>(value);
}

std::int16_t roundToInt16(double value)
{
    return roundWithin<std::int16_t>(value);
}

std::int32_t wrapToInt32(std::int64_t value)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

double numericValue(const QString &text)
{
    QString number;
    bool pointSeen = false;
    for (const QChar c : text) {
        const bool sign = number.isEmpty() && (c == u'-' || c == u'+');
        const bool point = c == u'.' && !pointSeen;
        if (c.isSpace())
            continue;
        if (!sign && !point && (c < u'0' || c > u'9'))
            break;
        pointSeen = pointSeen || point;
        number += c;
    }
    return number.toDouble();
}

std::optional<std::int32_t> wholeNumber(const QString &text)
{
    bool isNumber = false;
    const int value = text.trimmed().toInt(&isNumber);
    return isNumber ? std::optional<std::int32_t>(value) : std::nullopt;
}
