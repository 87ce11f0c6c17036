// SPDX-License-Identifier: GPL-3.0-or-later
// A folder with the folders above it and those in it, as an indented list. A double click or Enter opens a folder;
// walking with the arrow keys only chooses.
#pragma once

#include "controls/list_box.h"

class DirListBox : public ListBox
{
    Q_OBJECT

public:
    DirListBox(QWidget *parent, const ControlSetup &setup);

    /// The open folder as a program path.
    QString Path() const { return m_path; }

    /// Opens another folder. False, and nothing changes, when there is no such folder.
    bool setPath(const QString &path);

    /// The program path of a row's folder; "" past the end.
    QString folderAt(int row) const { return m_folders.value(row); }

Q_SIGNALS:
    /// Another folder is open.
    void Change();

private:
    void open(int row);

    QString m_path;
    QStringList m_folders; // Program path by row: the drive's root, each folder down to the open one, its folders.
};
