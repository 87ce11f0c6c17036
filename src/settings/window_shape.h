// SPDX-License-Identifier: GPL-3.0-or-later
// The shape of a picture: all of it that has not the colour of its top left pixel.
#pragma once

#include <QImage>
#include <QRegion>

/// The region of a picture, in its pixels. A run of pixels that reaches the right edge is closed at the first
/// key-coloured pixel of a later row, as a rectangle of that row between the run's first column and that pixel; one
/// still open after the last row is dropped. Empty for a picture of the key colour alone.
QRegion shapeRegion(const QImage &picture);
