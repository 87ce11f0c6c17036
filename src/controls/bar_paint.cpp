// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/bar_paint.h"

#include "controls/shared_paint.h"
#include "controls/skin.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace
{
// A knob of brushed metal: lit from the top left, the accent across its middle.
void paintThumb(QPainter &painter, const QRect &place, const QStyleOptionSlider &option)
{
    const bool isDragged =
        (option.state & QStyle::State_Sunken) && (option.activeSubControls & QStyle::SC_ScrollBarSlider);
    const bool across = option.orientation == Qt::Horizontal;
    const QRectF knob =
        QRectF(across ? place.adjusted(0, 1, 0, -1) : place.adjusted(1, 0, -1, 0)).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(skinColour(Colour::ink));
    painter.setBrush(isDragged ? skinColour(Colour::thumbFace).lighter(115) : skinColour(Colour::thumbFace));
    painter.drawRoundedRect(knob, 2, 2);
    painter.setPen(skinColour(Colour::thumbLight));
    painter.drawPolyline(QPolygonF{knob.bottomLeft() + QPointF(1, -2), knob.topLeft() + QPointF(1, 1),
                                   knob.topRight() + QPointF(-2, 1)});
    painter.setPen(skinColour(Colour::thumbShade));
    painter.drawPolyline(QPolygonF{knob.bottomLeft() + QPointF(2, -1), knob.bottomRight() + QPointF(-1, -1),
                                   knob.topRight() + QPointF(-1, 2)});
    painter.setPen(QPen(skinColour(Colour::accent), 2));
    const QPointF middle = knob.center();
    if (across)
        painter.drawLine(QPointF(middle.x(), knob.top() + 2), QPointF(middle.x(), knob.bottom() - 2));
    else
        painter.drawLine(QPointF(knob.left() + 2, middle.y()), QPointF(knob.right() - 2, middle.y()));
}

// The thumb of a list's own bar: plain, so that the knobs stay the sliders'.
void paintListThumb(QPainter &painter, const QRect &place)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(dimmed(0.5F));
    painter.drawRoundedRect(place.adjusted(3, 2, -3, -2), 3, 3);
}

// The thumb's place along the bar: nothing but a groove and a thumb, no arrows.
QRect thumbPlace(const QStyleOptionSlider &option, bool shortThumb)
{
    const bool horizontal = option.orientation == Qt::Horizontal;
    const int room = horizontal ? option.rect.width() : option.rect.height();
    const int range = option.maximum - option.minimum;
    int length = shortThumb || range <= 0
                     ? shortestThumb
                     : static_cast<int>(qint64(option.pageStep) * room / (range + option.pageStep));
    length = std::clamp(length, std::min(shortestThumb, room), room);
    const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                      room - length, option.upsideDown);
    return horizontal ? QRect(option.rect.x() + start, option.rect.y(), length, option.rect.height())
                      : QRect(option.rect.x(), option.rect.y() + start, option.rect.width(), length);
}

// The groove on the left of the thumb, or above it.
QRect grooveBefore(const QStyleOptionSlider &option, const QRect &thumb)
{
    const bool horizontal = option.orientation == Qt::Horizontal;
    return {option.rect.topLeft(),
            horizontal ? QPoint(thumb.left() - 1, option.rect.bottom()) : QPoint(option.rect.right(), thumb.top() - 1)};
}

// The groove on the right of the thumb, or below it.
QRect grooveAfter(const QStyleOptionSlider &option, const QRect &thumb)
{
    const bool horizontal = option.orientation == Qt::Horizontal;
    return {horizontal ? QPoint(thumb.right() + 1, option.rect.top()) : QPoint(option.rect.left(), thumb.bottom() + 1),
            option.rect.bottomRight()};
}
} // namespace

QRect barPart(const QStyleOptionSlider &bar, QStyle::SubControl part, bool isSlider)
{
    const QRect thumb = thumbPlace(bar, isSlider);
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return bar.rect;
    case QStyle::SC_ScrollBarSlider:
        return thumb;
    case QStyle::SC_ScrollBarSubPage:
    case QStyle::SC_ScrollBarAddPage: // A slider that grows upwards has them the other way round.
        return (part == QStyle::SC_ScrollBarSubPage) != bar.upsideDown ? grooveBefore(bar, thumb)
                                                                       : grooveAfter(bar, thumb);
    default:
        return {};
    }
}

void paintBar(QPainter &painter, const QStyleOptionSlider &bar, bool isSlider)
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isSlider) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(skinColour(Colour::wellBackground));
        painter.drawRoundedRect(bar.rect, 3, 3);
    }
    if (bar.state & QStyle::State_HasFocus)
        paintFocusRing(painter, bar.rect);
    const QRect thumb = barPart(bar, QStyle::SC_ScrollBarSlider, isSlider);
    if (isSlider)
        paintThumb(painter, thumb, bar);
    else if (bar.maximum > bar.minimum)
        paintListThumb(painter, thumb);
}
