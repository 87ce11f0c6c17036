// SPDX-License-Identifier: GPL-3.0-or-later
// The look of the controls that the window system would otherwise draw its own way: one style for lists, fields,
// sliders, check boxes, menus and tool tips, in the colours of the skins.
#pragma once

#include <QProxyStyle>

class QStyleOptionMenuItem;

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
