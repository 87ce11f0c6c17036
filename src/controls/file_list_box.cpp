// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/file_list_box.h"

#include "base/names.h"
#include "platform/folders.h"

FileListBox::FileListBox(QWidget *parent, const ControlSetup &setup, const QString &pattern) : ListBox(parent, setup)
{
    for (const QString &part : pattern.split(u';'))
        m_extensions += part.mid(part.lastIndexOf(u'.') + 1);
}

bool FileListBox::setPath(const QString &path)
{
    if (!folderExists(path))
        return false;
    m_path = path;
    setItems(readFolder());
    Q_EMIT PathChange();
    return true;
}

void FileListBox::Refresh()
{
    const QString chosen = List(ListIndex());
    setItems(readFolder());
    chooseQuietly(chosen.isEmpty() ? -1 : static_cast<int>(items().indexOf(chosen)));
}

QString FileListBox::filePath(int row) const
{
    return pathIn(m_path, List(row));
}

QStringList FileListBox::readFolder() const
{
    QStringList names = filesIn(m_path, m_extensions);
    sortNames(names);
    return names;
}
