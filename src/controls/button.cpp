// A button with a face of its own.
#include "controls/button.h"

#include "controls/skin_style.h"

#include <QPainter>

Button::Button(QWidget *parent, const ControlSetup &setup, const QString &caption) : Label(parent, setup, caption)
{
    setButton(true);
}

void Button::paintFace(QPainter &painter) const
{
    const ButtonLook look = !isEnabled()  ? ButtonLook::Disabled
                            : isPressed() ? ButtonLook::Pressed
                            : isHovered() ? ButtonLook::Hovered
                                          : ButtonLook::Normal;
    paintButtonFace(painter, rect(), look);
}
