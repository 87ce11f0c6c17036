// SPDX-License-Identifier: GPL-3.0-or-later
// The look of the controls that the window system would otherwise draw its own way: one style for lists, fields,
// sliders, check boxes, menus and tool tips, in the colours of the skins.
#pragma once

#include <QProxyStyle>

class QPainter;
class QStyleOptionMenuItem;

enum class ButtonLook { Normal, Hovered, Pressed };

/// A button's face: graphite with a lit upper edge, lower when pressed.
void paintButtonFace(QPainter &painter, const QRect &place, ButtonLook look);

enum class Ring { Plain, Round, Thin };

/// The ring that shows where the focus is; thin around a row of a list and the text of a check box, where it is not
/// the only mark. On a chosen row, where the ring's own colour would be lost, it has that of the row's text.
void paintFocusRing(QPainter &painter, const QRect &place, Ring ring = Ring::Plain, bool isChosen = false);

class SkinStyle : public QProxyStyle
{
    Q_OBJECT

public:
    SkinStyle();

    void polish(QPalette &colours) override;

    /// Texts of labels are plain, tool tips and boxes included: a file's name must never be taken as HTML, which could
    /// even make Qt read other files.
    void polish(QWidget *widget) override;
    using QProxyStyle::polish;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                           const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override;

private:
    void paintMenuItem(QPainter &painter, const QStyleOptionMenuItem &item, const QWidget *menu) const;
};
