// SPDX-License-Identifier: GPL-3.0-or-later
// The drives to choose from. Choosing another one fires Change(), whoever chooses it.
#pragma once

#include "controls/control.h"

#include <QComboBox>

class DriveListBox : public QComboBox
{
    Q_OBJECT

public:
    DriveListBox(QWidget *parent, const ControlSetup &setup);

    /// The root of the chosen drive as a program path ("z:\").
    QString Drive() const;

    /// Chooses the drive that a program path lies on; a path on none changes nothing.
    void setDrive(const QString &path);

Q_SIGNALS:
    void Change();
};
