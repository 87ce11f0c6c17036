// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/folder_lists.h"

#include "base/names.h"
#include "platform/drives.h"
#include "platform/folders.h"

#include <QApplication>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace
{
const QString openMark = u"▾"_s;
constexpr int driveRootLength = 3;

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
    setAccessibleForm(
        [this](int row) { return nameAt(row) + (List(row).trimmed().startsWith(openMark) ? u", open"_s : QString()); });
    connect(this, &ListBox::DblClick, this, [this] { readPath(folderAt(ListIndex())); });
    connect(this, &ListBox::KeyDown, this, [this](QKeyEvent *event) {
        if (!isEnter(*event))
            return;
        event->accept();
        readPath(folderAt(ListIndex()));
    });
}

// A row's text without the steps and the mark before the name.
QString DirListBox::nameAt(int row) const
{
    return List(row).trimmed().mid(2);
}

bool DirListBox::setPath(const QString &path)
{
    if (path == m_path)
        return true;
    if (!folderExists(path))
        return false;
    open(path);
    return true;
}

void DirListBox::readPath(const QString &path)
{
    QString folder = path;
    while (folder.size() > driveRootLength && !folderExists(folder)) {
        folder = FolderFromPath(folder);
        if (folder.size() > driveRootLength)
            folder.chop(1);
    }
    if (folderExists(folder))
        open(folder);
}

void DirListBox::open(const QString &path)
{
    m_path = spelledAsOnDisk(path);
    const FolderRows rows = rowsFor(m_path);
    m_folders = rows.folders;
    setItems(rows.texts);
    chooseQuietly(rows.openRow);
    Q_EMIT Change();
}

// Letters typed one soon after the other choose the next folder that begins with them, the same letter again the one
// after.
void DirListBox::keyboardSearch(const QString &letters)
{
    if (!m_sinceLetter.isValid() || m_sinceLetter.elapsed() > QApplication::keyboardInputInterval())
        m_letters.clear();
    m_sinceLetter.start();
    const bool goesOn = m_letters.isEmpty() || m_letters == letters;
    m_letters = goesOn ? letters : m_letters + letters;
    const int count = ListCount();
    for (int step = goesOn ? 1 : 0; step <= count; ++step) {
        const int row = (std::max(ListIndex(), 0) + step) % count;
        if (nameAt(row).startsWith(m_letters, Qt::CaseInsensitive)) {
            setListIndex(row);
            return;
        }
    }
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
