// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/shared_paint.h"

#include "controls/contrast.h"

#include <QPainter>

QColor dimmed(float opacity)
{
    QColor colour = skinColour(Colour::captionDim);
    colour.setAlphaF(opacity);
    return colour;
}

void paintButtonFace(QPainter &painter, const QRect &place, ButtonLook look)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool pressed = look == ButtonLook::Pressed;
    QLinearGradient light(place.topLeft(), place.bottomLeft());
    const int strength = look == ButtonLook::Hovered ? 130 : 110;
    light.setColorAt(pressed ? 1 : 0, skinColour(Colour::face).lighter(strength));
    light.setColorAt(pressed ? 0 : 1, skinColour(Colour::face).darker(pressed ? 150 : 115));
    painter.setBrush(light);
    painter.setPen(skinColour(Colour::thumbShade));
    const QRectF face = QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(face, 3, 3);
    if (!pressed) { // The lit edge.
        painter.setPen(QColor(255, 255, 255, 46));
        painter.drawLine(face.topLeft() + QPointF(3, 1), face.topRight() + QPointF(-3, 1));
    }
    painter.restore();
}

void paintFocusRing(QPainter &painter, const QRect &place, Ring ring, bool isChosen)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = ring == Ring::Thin ? 1 : 2;
    const bool isLost =
        isChosen && contrast(skinColour(Colour::focusRing).rgb(), skinColour(Colour::selection).rgb()) < leastContrast;
    painter.setPen(QPen(skinColour(isLost ? Colour::selectionText : Colour::focusRing), width));
    const int inset = isLost ? 2 : 0; // Inside the bar, whose colour it stands out from.
    painter.setBrush(Qt::NoBrush);
    const double edge = inset + width / 2;
    const QRectF middle = QRectF(place).adjusted(edge, edge, -edge, -edge);
    if (ring == Ring::Round)
        painter.drawEllipse(middle);
    else
        painter.drawRoundedRect(middle, 3, 3);
    painter.restore();
}
