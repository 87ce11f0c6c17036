// SPDX-License-Identifier: GPL-3.0-or-later
// What several controls paint alike, in the colours of the skin: the face of a button, the ring of the focus.
#pragma once

#include <QColor>

class QPainter;
class QRect;

/// Of lines and signs that are seen on every ground of a skin.
QColor dimmed(float opacity);

enum class ButtonLook { Normal, Hovered, Pressed };

/// A button's face with a lit upper edge, lower when pressed.
void paintButtonFace(QPainter &painter, const QRect &place, ButtonLook look);

enum class Ring { Plain, Round, Thin };

/// The ring that shows where the focus is; thin around a row of a list and the text of a check box, where it is not
/// the only mark. On a chosen row, where the ring's own colour would be lost, it has that of the row's text.
void paintFocusRing(QPainter &painter, const QRect &place, Ring ring = Ring::Plain, bool isChosen = false);
