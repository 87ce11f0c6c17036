// SPDX-License-Identifier: GPL-3.0-or-later
// Where a window goes on the screen.
#pragma once

#include <QPointF>
#include <QRect>
#include <QSizeF>

/// The top left corner of a window that stands centred from left to right and slightly above the middle of the screen.
/// One unit for all; single precision.
QPointF centredPlace(const QSizeF &screen, const QSizeF &window);

/// The top left corner of a window that stands beside another one, a gap between them: on its right where the screen
/// has room, else on its left, else where it covers least of it. Always on the screen.
QPoint besidePlace(const QRect &screen, const QRect &neighbour, const QSize &window, int gap);

/// Does a window that is dragged stay where it was, though for some time now it has been asked to go elsewhere?
bool staysBehind(const QPoint &start, const QPoint &now, const QPoint &wanted, qint64 askingMs);
