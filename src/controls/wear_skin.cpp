// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/wear_skin.h"

#include "controls/fonts.h"

#include <QApplication>
#include <QPointer>
#include <QStyle>
#include <QToolTip>
#include <QWidget>

namespace
{
QList<QPointer<QWidget>> allWidgets()
{
    QList<QPointer<QWidget>> widgets;
    for (QWidget *widget : QApplication::allWidgets())
        widgets += widget;
    return widgets;
}

void renew(QWidget &widget)
{
    if (widget.testAttribute(Qt::WA_SetFont))
        widget.setFont(fonts::inSkin(widget.font()));
    if (widget.inherits("QTipLabel")) // Has a palette of its own.
        widget.setPalette(QToolTip::palette());
    QEvent change(QEvent::StyleChange);
    QCoreApplication::sendEvent(&widget, &change);
    widget.update();
}
} // namespace

void wearSkin(const Skin &skin)
{
    setCurrentSkin(skin);
    QPalette colours = QApplication::style()->standardPalette();
    QApplication::style()->polish(colours);
    QApplication::setPalette(colours);
    QToolTip::setPalette(colours);
    QApplication::setFont(fonts::inSkin(QApplication::font()));
    for (const QPointer<QWidget> &widget : allWidgets()) {
        if (widget)
            renew(*widget);
    }
}
