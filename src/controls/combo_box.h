// SPDX-License-Identifier: GPL-3.0-or-later
// A drop-down list in a well of the skin: one of its items is chosen, or none.
#pragma once

#include "controls/control.h"

#include <QComboBox>

class ComboBox : public QComboBox
{
    Q_OBJECT

public:
    ComboBox(QWidget *parent, const ControlSetup &setup, const QStringList &items);

    /// The chosen item, -1 for none.
    int ListIndex() const { return currentIndex(); }
    void setListIndex(int index) { setCurrentIndex(index); }

    QString List(int index) const { return itemText(index); }
    int ListCount() const { return count(); }

protected:
    void paintEvent(QPaintEvent *event) override;
};
