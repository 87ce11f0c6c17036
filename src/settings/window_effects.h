// SPDX-License-Identifier: GPL-3.0-or-later
// What windows can look like: half transparent, or cut to the shape of a picture.
#pragma once

#include <QtGlobal>

class PictureBox;
class QWidget;

/// The 16-bit truth value of a condition: all 16 bits set, or none.
constexpr qint16 asFlag(bool on)
{
    return on ? -1 : 0;
}

/// Half transparent when on is exactly true; opaque for any other value, 1 too. Either way the window has the property
/// "layered" from then on.
void MakeTranslucent(QWidget &window, qint16 on);

/// Gives the box the size of its picture and cuts it to the picture's shape. False, and no shape, when the picture is
/// missing or all of the key colour.
bool ShapeFromPicture(PictureBox &box);
