// SPDX-License-Identifier: GPL-3.0-or-later
// The small rules of the folder browser window.
#pragma once

#include <QString>

/// The frame after counter: 1, 2, 0, 1 …
constexpr qint16 nextFrame(qint16 counter)
{
    constexpr qint16 frameCount = 3;
    const int next = counter + 1;
    return next >= frameCount ? qint16(0) : qint16(next);
}

/// How many songs a folder holds, in words.
inline QString songCountText(int count)
{
    return QString::number(count) + QStringLiteral(" Mp3s");
}
