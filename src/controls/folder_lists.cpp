// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/folder_lists.h"

#include "base/names.h"
#include "platform/drives.h"
#include "platform/folders.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace
{
const QString openMark = u"▾"_s;

struct FolderRows {
    QStringList folders; // Program paths.
    QStringList texts;   // What the rows show.
    int openRow = 0;     // The row of the open folder.
};

QString indented(qsizetype depth, const QString &mark, const QString &name)
{
    return QString(depth * 3, u' ') + mark + u' ' + name;
}

FolderRows rowsFor(const QString &path)
{
    FolderRows rows;
    const QStringList steps = path.split(u'\\', Qt::SkipEmptyParts);
    QString folder = steps.value(0) + u'\\';
    rows.folders += folder;
    rows.texts += indented(0, openMark, displayPath(folder));
    for (const QString &step : steps.mid(1)) {
        folder = tidyPathIn(folder, step);
        rows.texts += indented(rows.folders.size(), openMark, step);
        rows.folders += folder;
    }
    rows.openRow = static_cast<int>(rows.folders.size()) - 1;
    NameList names = foldersIn(folder);
    names.sort();
    for (const QString &name : names.toStringList()) {
        rows.texts += indented(rows.openRow + 1, u"▸"_s, name);
        rows.folders += tidyPathIn(folder, name);
    }
    return rows;
}
} // namespace

DriveListBox::DriveListBox(QWidget *parent, const ControlSetup &setup) : ComboBox(parent, setup, {})
{
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

DirListBox::DirListBox(QWidget *parent, const ControlSetup &setup) : ListBox(parent, setup)
{
    setAccessibleForm([this](int row) { // Read out, the steps and marks before the names say nothing.
        const QString text = List(row).trimmed();
        return text.mid(2) + (text.startsWith(openMark) ? u", open"_s : QString());
    });
    connect(this, &ListBox::DblClick, this, [this] { open(ListIndex()); });
    connect(this, &ListBox::KeyDown, this, [this](QKeyEvent *event) {
        if (!isEnter(*event))
            return;
        event->accept();
        open(ListIndex());
    });
}

bool DirListBox::setPath(const QString &path)
{
    if (path == m_path)
        return true;
    if (!folderExists(path))
        return false;
    m_path = spelledAsOnDisk(path);
    const FolderRows rows = rowsFor(m_path);
    m_folders = rows.folders;
    setItems(rows.texts);
    chooseQuietly(rows.openRow);
    Q_EMIT Change();
    return true;
}

void DirListBox::open(int row)
{
    if (row >= 0)
        setPath(folderAt(row));
}

FileListBox::FileListBox(QWidget *parent, const ControlSetup &setup, const QString &pattern) : ListBox(parent, setup)
{
    for (const QString &part : pattern.split(u';'))
        m_extensions += part.mid(part.lastIndexOf(u'.') + 1);
}

bool FileListBox::setPath(const QString &path)
{
    if (!folderExists(path))
        return false;
    m_path = spelledAsOnDisk(path); // Work on a file of the list takes the exact name.
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
    return tidyPathIn(m_path, List(row));
}

NameList FileListBox::readFolder() const
{
    NameList names = filesIn(m_path, m_extensions);
    names.sort();
    return names;
}
