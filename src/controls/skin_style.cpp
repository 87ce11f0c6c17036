// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/skin_style.h"

#include "controls/bar_paint.h"
#include "controls/list_box.h"
#include "controls/scroll_bars.h"
#include "controls/shared_paint.h"
#include "controls/skin.h"

#include <QLabel>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace
{
constexpr int barThickness = 14;
constexpr int rowAir = 4;    // Between the rows of a list.
constexpr int ringRoom = 2;  // Around a list.
constexpr int markRoom = 11; // Before the texts of a list with marks.

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
    painter.setPen(option.state & QStyle::State_HasFocus ? skinColour(Colour::focusRing)
                                                         : dimmed(hovered ? 0.9F : 0.65F));
    painter.setBrush(checked ? skinColour(Colour::accent) : skinColour(Colour::wellBackground));
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(box, 2, 2);
    if (checked)
        paintTick(painter, box);
}
} // namespace

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
    colours.setColor(QPalette::Link, skinColour(Colour::accent).lighter(160));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        colours.setColor(QPalette::Disabled, role, dimmed(0.5F));
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
        painter->setPen(dimmed(0.5F));
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
                         dimmed(0.35F));
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
        paintBar(*painter, *bar, isSlider(widget));
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                                const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar)
        return QProxyStyle::subControlRect(control, option, part, widget);
    return barPart(*bar, part, isSlider(widget));
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
    case SH_ComboBox_Popup: // A list with a scroll bar below the box, not a menu as tall as the screen.
    case SH_ItemView_ActivateItemOnSingleClick:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}
