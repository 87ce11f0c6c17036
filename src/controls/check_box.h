// SPDX-License-Identifier: GPL-3.0-or-later
// A check box with the states 0 and 1. A change of state fires Click(), also when the program makes it.
#pragma once

#include "controls/control.h"

#include <QCheckBox>

class CheckBox : public QCheckBox
{
    Q_OBJECT

public:
    CheckBox(QWidget *parent, const ControlSetup &setup, const QString &caption);

    int State() const { return isChecked() ? 1 : 0; }

    /// 0 or 1; any other number changes nothing.
    void setState(int state);

    /// The colour of its ground, to blend into the skin.
    void setBackColour(const QColor &colour);

Q_SIGNALS:
    void Click();
};
