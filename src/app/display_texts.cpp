// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/display_texts.h"

#include "base/names.h"
#include "base/numbers.h"
#include "base/texts.h"
#include "mp3info/mp3_info.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr int afterTheChangeMs = 4;
} // namespace

QString rotatedTitle(const QString &title)
{
    return title.mid(1) + title.left(1);
}

QString timeText(double positionSeconds, double durationSeconds)
{
    return FormatPlayTime(roundHalfEven(positionSeconds)) + u'/' + FormatPlayTime(roundHalfEven(durationSeconds));
}

QString placeInWords(double positionSeconds, double durationSeconds)
{
    return durationSeconds > 0 ? timeText(positionSeconds, durationSeconds).replace(u'/', u" of "_s) : QString();
}

int msUntilNextSecond(double positionSeconds)
{
    const double intoTheSecond = positionSeconds + 0.5 - std::floor(positionSeconds + 0.5);
    return static_cast<int>((1.0 - intoTheSecond) * 1000.0) + afterTheChangeMs;
}

QString songTip(const QString &name, const QuickHeader &header)
{
    if (name.isEmpty())
        return {};
    const int seconds = roundHalfEven(numericValue(header.length));
    return u"Name="_s + withoutExtension(name) + u" Time="_s + FormatPlayTime(seconds) + u" Size="_s +
           Mp3Info::FormatFileSize(numericValue(header.size));
}

SplashStep splashStep(int step, int barWidth)
{
    const double fraction = static_cast<double>(step) / splashSteps;
    const bool firstHalf = fraction * barWidth < barWidth / 2.0;
    return {fraction, firstHalf ? u"Loading Settings..."_s : u"Loading Orvel..."_s};
}
