// SPDX-License-Identifier: GPL-3.0-or-later
// Texts as they come from files of other programs.
#pragma once

#include <QStringView>

/// The text before its first NUL: some programs pad with them, and what follows is none of the text.
inline QStringView untilNul(QStringView text)
{
    const qsizetype nul = text.indexOf(QChar());
    return nul < 0 ? text : text.first(nul);
}
