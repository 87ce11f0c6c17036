// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/play_time.h"

QString FormatPlayTime(std::int32_t seconds)
{
    const auto twoPlaces = [](int number) { return QString::number(number).rightJustified(2, u'0'); };
    const int minutes = seconds / 60;
    const int hours = minutes / 60;
    const int rest = minutes % 60;
    const QString start = hours != 0 ? QString::number(hours) + u':' + twoPlaces(rest) : QString::number(rest);
    return start + u':' + twoPlaces(seconds % 60);
}
