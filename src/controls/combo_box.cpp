// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/combo_box.h"

#include "controls/fonts.h"
#include "controls/skin_style.h"
#include "skins/palette.h"

#include <QPainter>

namespace
{
constexpr int shownItems = 16;
constexpr int arrowRoom = 20;
constexpr int textIndent = 4;
} // namespace

ComboBox::ComboBox(QWidget *parent, const ControlSetup &setup, const QStringList &items) : QComboBox(parent)
{
    setUpControl(*this, setup);
    setFont(fonts::font(fonts::Face::Arial, 12));
    setMaxVisibleItems(shownItems);
    addItems(items);
    setCurrentIndex(-1);
}

// The well itself is the skin's.
void ComboBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor::fromRgb(palette::listText));
    const QRect text = rect().adjusted(textIndent, 0, -arrowRoom, 0);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, text.width()));
    const QPointF tip(width() - arrowRoom / 2.0, height() / 2.0 + 2);
    painter.setPen(QPen(QColor::fromRgb(underMouse() ? palette::warmWhite : palette::captionDim), 1.5));
    painter.drawPolyline(QPolygonF{tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)});
    if (hasFocus())
        paintFocusRing(painter, rect());
}
