// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/play_times.h"

#include "base/numbers.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
constexpr int shortTime = 4;
constexpr int longTime = 5;
constexpr int secondsDigits = 2;
constexpr int typeMismatch = 13;

std::int32_t clamped(std::int64_t seconds)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(seconds, Limits::min(), Limits::max()));
}

ErrorRecord notATime(qsizetype index, const QString &time)
{
    return {typeMismatch, u"Playlist"_s, u"Type mismatch: play time %1 is \"%2\""_s.arg(index + 1).arg(time)};
}
} // namespace

PlayTimeSum addPlayTimes(const QStringList &times, std::int32_t startSeconds)
{
    PlayTimeSum sum{startSeconds, {}};
    std::int16_t itemSeconds = 0; // Two digits of each: at most 99 minutes and 99 seconds, far within 16 bits.
    for (qsizetype i = 0; i < times.size() && !times[i].isEmpty(); ++i) {
        const QString &time = times[i];
        if (time.size() == shortTime || time.size() == longTime) {
            const auto minutes = wholeNumber(time.first(time.size() - shortTime + 1));
            const auto seconds = wholeNumber(time.last(secondsDigits));
            if (!minutes || !seconds) {
                sum.error = notATime(i, time);
                break;
            }
            itemSeconds = static_cast<std::int16_t>(*minutes * 60 + *seconds);
        }
        sum.seconds = clamped(std::int64_t(sum.seconds) + itemSeconds);
    }
    return sum;
}
