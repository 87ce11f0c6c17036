// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/drive_list_box.h"

#include "platform/drives.h"

using namespace Qt::StringLiterals;

DriveListBox::DriveListBox(QWidget *parent, const ControlSetup &setup) : QComboBox(parent)
{
    setUpControl(*this, setup);
    for (const QString &drive : drives())
        addItem(drive + u"  "_s + displayPath(drive), drive);
    connect(this, &QComboBox::currentIndexChanged, this, &DriveListBox::Change);
}

QString DriveListBox::Drive() const
{
    return currentData().toString();
}

void DriveListBox::setDrive(const QString &path)
{
    const int row = findData(path.left(2).toLower() + u'\\');
    if (row >= 0)
        setCurrentIndex(row);
}
