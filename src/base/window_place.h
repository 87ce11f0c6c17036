// Where a window goes on the screen.
#pragma once

#include <QPointF>
#include <QSizeF>

/// The top left corner of a window that stands centred from left to right and slightly above the middle of the screen.
/// One unit for all; single precision.
QPointF centredPlace(const QSizeF &screen, const QSizeF &window);
