// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window_place.h"

#include <algorithm>

namespace
{
constexpr float usedHeight = 0.95F; // The lowest part of a screen often belongs to a panel.
}

QPointF centredPlace(const QSizeF &screen, const QSizeF &window)
{
    const auto half = [](qreal length) { return static_cast<float>(length) / 2; };
    return {half(screen.width()) - half(window.width()),
            static_cast<float>(screen.height()) * usedHeight / 2 - half(window.height())};
}

QPoint besidePlace(const QRect &screen, const QRect &neighbour, const QSize &window, int gap)
{
    const int onRight = neighbour.x() + neighbour.width() + gap;
    const int onLeft = neighbour.x() - gap - window.width();
    const int rightmost = screen.x() + screen.width() - window.width();
    const int lowest = screen.y() + screen.height() - window.height();
    const bool right = onRight <= rightmost || (onLeft < screen.x() && rightmost - onRight >= onLeft - screen.x());
    return {std::max(std::min(right ? onRight : onLeft, rightmost), screen.x()),
            std::max(std::min(neighbour.y(), lowest), screen.y())};
}

bool staysBehind(const QPoint &start, const QPoint &now, const QPoint &wanted, qint64 askingMs)
{
    constexpr int rounding = 2; // Of places between the screen's pixels.
    constexpr int farAway = 8;
    constexpr qint64 patienceMs = 120;
    return (now - start).manhattanLength() <= rounding && (wanted - start).manhattanLength() > farAway &&
           askingMs > patienceMs;
}
