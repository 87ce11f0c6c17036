// SPDX-License-Identifier: GPL-3.0-or-later
// Half transparent windows, and the 16-bit truth value that asks for them.
#pragma once

#include <QtGlobal>

class QWidget;

/// The truth value of a condition: all 16 bits set, or none.
constexpr qint16 asFlag(bool on)
{
    return on ? -1 : 0;
}

/// Half transparent when on is exactly true; opaque for any other value, 1 too. Either way the window has the property
/// "layered" from then on.
void MakeTranslucent(QWidget &window, qint16 on);
