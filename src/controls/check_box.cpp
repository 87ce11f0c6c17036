// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/check_box.h"

CheckBox::CheckBox(QWidget *parent, const ControlSetup &setup, const QString &caption) : QCheckBox(caption, parent)
{
    setUpControl(*this, setup);
    setAccessibleName({}); // Its text is its name.
    connect(this, &QCheckBox::toggled, this, &CheckBox::Click);
}

void CheckBox::setState(int state)
{
    if (state == 0 || state == 1)
        setChecked(state == 1);
}

void CheckBox::setBackColour(const QColor &colour)
{
    QPalette colours = palette();
    colours.setColor(backgroundRole(), colour);
    setPalette(colours);
    setAutoFillBackground(true);
}
