// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/skin_style.h"

#include "controls/contrast.h"
#include "controls/list_box.h"
#include "controls/scroll_bars.h"

#include <QLabel>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace
{
constexpr int barThickness = 14;
constexpr int shortestThumb = 28;
constexpr int rowAir = 4;    // Between the rows of a list.
constexpr int ringRoom = 2;  // Around a list.
constexpr int markRoom = 11; // Before the texts of a list with marks.

QColor lit(Colour which, int percent)
{
    return skinColour(which).lighter(percent);
}

// Lines and signs that are seen on every ground of a skin.
QColor dim(float opacity)
{
    QColor colour = skinColour(Colour::captionDim);
    colour.setAlphaF(opacity);
    return colour;
}

// A knob of brushed metal: lit from the top left, the accent across its middle.
void paintThumb(QPainter &painter, const QRect &place, const QStyleOptionSlider &option)
{
    const bool isDragged =
        (option.state & QStyle::State_Sunken) && (option.activeSubControls & QStyle::SC_ScrollBarSlider);
    const bool across = option.orientation == Qt::Horizontal;
    const QRectF knob =
        QRectF(across ? place.adjusted(0, 1, 0, -1) : place.adjusted(1, 0, -1, 0)).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(skinColour(Colour::ink));
    painter.setBrush(isDragged ? lit(Colour::thumbFace, 115) : skinColour(Colour::thumbFace));
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
    painter.setBrush(dim(0.5F));
    painter.drawRoundedRect(place.adjusted(3, 2, -3, -2), 3, 3);
}

bool isSlider(const QWidget *widget)
{
    return qobject_cast<const SliderBar *>(widget);
}

bool isList(const QWidget *widget)
{
    return qobject_cast<const ListBox *>(widget);
}

// The ring of a list that has the focus. As long as the user works with the mouse alone, the ring of the current row is
// enough, or a thin one around a list without a current row.
void paintListRing(QPainter &painter, const QStyleOption &option, const QWidget &list)
{
    if (option.state & QStyle::State_KeyboardFocusChange)
        paintFocusRing(painter, option.rect);
    else if (!static_cast<const ListBox &>(list).currentIndex().isValid())
        paintFocusRing(painter, option.rect, Ring::Thin);
}

void paintScrollBar(QPainter &painter, const QStyle &style, const QStyleOptionSlider &option, const QWidget *widget)
{
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isSlider(widget)) { // A slider's groove is on the skin.
        painter.setPen(Qt::NoPen);
        painter.setBrush(skinColour(Colour::wellBackground));
        painter.drawRoundedRect(option.rect, 3, 3);
    }
    if (option.state & QStyle::State_HasFocus)
        paintFocusRing(painter, option.rect);
    const QRect thumb = style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, widget);
    if (isSlider(widget))
        paintThumb(painter, thumb, option);
    else if (option.maximum > option.minimum)
        paintListThumb(painter, thumb);
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

void paintTick(QPainter &painter, const QRectF &r)
{
    painter.setPen(QPen(skinColour(Colour::accentText), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{
        {r.left() + 3.5, r.center().y()}, {r.center().x() - 1, r.bottom() - 3.5}, {r.right() - 2.5, r.top() + 3.5}});
}

void paintCheckBox(QPainter &painter, const QStyleOption &option)
{
    const bool checked = option.state & QStyle::State_On;
    const bool hovered = option.state & QStyle::State_MouseOver;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(option.state & QStyle::State_HasFocus ? skinColour(Colour::focusRing) : dim(hovered ? 0.9F : 0.65F));
    painter.setBrush(checked ? skinColour(Colour::accent) : skinColour(Colour::wellBackground));
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(box, 2, 2);
    if (checked)
        paintTick(painter, box);
}
} // namespace

void paintButtonFace(QPainter &painter, const QRect &place, ButtonLook look)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool pressed = look == ButtonLook::Pressed;
    QLinearGradient light(place.topLeft(), place.bottomLeft());
    const int strength = look == ButtonLook::Hovered ? 130 : 110;
    light.setColorAt(pressed ? 1 : 0, lit(Colour::face, strength));
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

SkinStyle::SkinStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void SkinStyle::polish(QPalette &colours)
{
    colours.setColor(QPalette::Window, skinColour(Colour::graphite));
    colours.setColor(QPalette::WindowText, skinColour(Colour::caption));
    colours.setColor(QPalette::Base, skinColour(Colour::listBackground));
    colours.setColor(QPalette::AlternateBase, skinColour(Colour::listBackground));
    colours.setColor(QPalette::Text, skinColour(Colour::listText));
    colours.setColor(QPalette::PlaceholderText, skinColour(Colour::captionDim));
    colours.setColor(QPalette::Button, skinColour(Colour::face));
    colours.setColor(QPalette::ButtonText, skinColour(Colour::caption));
    colours.setColor(QPalette::BrightText, skinColour(Colour::warmWhite));
    colours.setColor(QPalette::Highlight, skinColour(Colour::selection));
    colours.setColor(QPalette::HighlightedText, skinColour(Colour::selectionText));
    colours.setColor(QPalette::ToolTipBase, skinColour(Colour::graphiteDark));
    colours.setColor(QPalette::ToolTipText, skinColour(Colour::warmWhite));
    colours.setColor(QPalette::Link, lit(Colour::accent, 160));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, dim(0.5F));
}

void SkinStyle::polish(QWidget *widget)
{
    if (auto *label = qobject_cast<QLabel *>(widget))
        label->setTextFormat(Qt::PlainText);
    QProxyStyle::polish(widget);
}

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const
{
    switch (element) {
    case PE_IndicatorCheckBox:
        paintCheckBox(*painter, *option);
        return;
    case PE_FrameFocusRect:
        paintFocusRing(*painter, option->rect, Ring::Thin, option->state & State_Selected);
        return;
    case PE_PanelMenu:
    case PE_FrameMenu:
        painter->save();
        painter->setPen(dim(0.5F));
        painter->setBrush(element == PE_PanelMenu ? QBrush(skinColour(Colour::graphite)) : QBrush(Qt::NoBrush));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore(); // The items are painted with it too.
        return;
    case PE_PanelLineEdit:
        if (option->state & State_HasFocus)
            paintFocusRing(*painter, option->rect);
        return;
    case PE_PanelButtonCommand:
        paintButtonFace(*painter, option->rect,
                        option->state & State_Sunken      ? ButtonLook::Pressed
                        : option->state & State_MouseOver ? ButtonLook::Hovered
                                                          : ButtonLook::Normal);
        if (option->state & State_HasFocus)
            paintFocusRing(*painter, option->rect);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void SkinStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                            const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element == CE_MenuItem && item)
        paintMenuItem(*painter, *item, widget);
    else if (element != CE_ShapedFrame || !isList(widget))
        QProxyStyle::drawControl(element, option, painter, widget);
    else if (widget->hasFocus())
        paintListRing(*painter, *option, *widget);
}

// Written like the captions, on the panel's colour, and not like a list.
void SkinStyle::paintMenuItem(QPainter &painter, const QStyleOptionMenuItem &item, const QWidget *menu) const
{
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        constexpr int indent = 6;
        painter.fillRect(item.rect.left() + indent, item.rect.center().y(), item.rect.width() - 2 * indent, 1,
                         dim(0.35F));
        return;
    }
    QStyleOptionMenuItem written = item;
    written.palette.setBrush(QPalette::Text, item.palette.windowText());
    QProxyStyle::drawControl(CE_MenuItem, &written, &painter, menu);
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                   const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && bar && widget)
        paintScrollBar(*painter, *this, *bar, widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                                const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar)
        return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect thumb = thumbPlace(*bar, isSlider(widget));
    switch (part) {
    case SC_ScrollBarGroove:
        return bar->rect;
    case SC_ScrollBarSlider:
        return thumb;
    case SC_ScrollBarSubPage:
    case SC_ScrollBarAddPage: // A slider that grows upwards has them the other way round.
        return (part == SC_ScrollBarSubPage) != bar->upsideDown ? grooveBefore(*bar, thumb) : grooveAfter(*bar, thumb);
    default:
        return {};
    }
}

QRect SkinStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    const QRect place = QProxyStyle::subElementRect(element, option, widget);
    const auto *list = element == SE_ItemViewItemText ? qobject_cast<const ListBox *>(widget) : nullptr;
    return list && list->hasMarks() ? place.adjusted(markRoom, 0, 0, 0) : place;
}

QSize SkinStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                                  const QWidget *widget) const
{
    const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    return type == CT_ItemViewItem ? size + QSize(0, rowAir) : size;
}

int SkinStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return barThickness;
    case PM_ScrollBarSliderMin:
        return shortestThumb;
    case PM_DefaultFrameWidth:
        return isList(widget) ? ringRoom : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
        return 4;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return 15;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                         QStyleHintReturn *result) const
{
    switch (hint) {
    case SH_ScrollBar_MiddleClickAbsolutePosition: // A slider's thumb goes where it is dragged only.
        return isSlider(widget) ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
    case SH_EtchDisabledText: // Its light edge makes dim text bolder than the rest.
    case SH_ScrollBar_Transient:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case SH_ComboBox_Popup: // A list with a scroll bar below the box, not a menu as tall as the screen.
    case SH_ItemView_ActivateItemOnSingleClick:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}
