// Where a window goes on the screen.
#include "base/window_place.h"

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
