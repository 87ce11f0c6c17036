// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/row_mark.h"

#include "controls/skin.h"

#include <QPainter>

void paintRowMark(QPainter &painter, const QRect &row, RowMark mark, bool isChosen)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(skinColour(isChosen ? Colour::selectionText : Colour::accentLight));
    painter.translate(row.left() + 3, QRectF(row).center().y());
    if (mark == RowMark::Playing)
        painter.drawPolygon(QPolygonF{{0, -4}, {6.5, 0}, {0, 4}});
    else if (mark == RowMark::Paused)
        painter.drawRects({QRectF(0, -4, 2.5, 8), QRectF(4.5, -4, 2.5, 8)});
    painter.restore();
}
