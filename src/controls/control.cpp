// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/control.h"

#include <QKeyEvent>
#include <QWidget>

void setUpControl(QWidget &control, const ControlSetup &setup)
{
    control.setObjectName(setup.name);
    control.setAccessibleDescription(setup.description);
    control.setAccessibleName(setup.description); // Unless its own text is its name.
    control.setGeometry(setup.place);
}

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}
