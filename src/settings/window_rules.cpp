// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/window_rules.h"

#include "base/texts.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QString songCountText(int count)
{
    return QString::number(count) + u" Mp3s"_s;
}

QString songListHint(bool toolTipData)
{
    return toolTipData ? u"Click Song To Start Display Data."_s : QString();
}

QString trayTip(const QString &text)
{
    constexpr qsizetype longestTip = 64;
    static const QRegularExpression markup(u"([<&])(?=\\S)"_s);
    QString tip = wholeCharacters(untilNul(text), longestTip).toString();
    return tip.replace(markup, u"\\1\u2060"_s); // The sign that joins words has no width.
}
