// SPDX-License-Identifier: GPL-3.0-or-later
// The small rules of the windows of this folder.
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
QString songCountText(int count);

/// What the song list's tool tip says from the moment the option changes until the mouse points at a song.
QString songListHint(bool toolTipData);

/// A text as the tip of the tray icon: up to its first NUL, cut to 64 characters. Some desktops read tips as HTML: what
/// looks like it is broken up by a sign that cannot be seen.
QString trayTip(const QString &text);
