// SPDX-License-Identifier: GPL-3.0-or-later
// The file system as lists: drives, folders, the files of one folder.
#pragma once

#include "controls/fields.h"
#include "controls/list_box.h"

#include <QElapsedTimer>

/// The drives to choose from. Choosing another one fires Change(), whether the user or the program does it.
class DriveListBox : public ComboBox
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

/// A folder with the folders above it and those in it, as an indented list. A double click or Enter opens a folder, or
/// reads the open one again; arrow keys and letters only choose.
class DirListBox : public ListBox
{
    Q_OBJECT

public:
    DirListBox(QWidget *parent, const ControlSetup &setup);

    /// The open folder as a program path.
    QString Path() const { return m_path; }

    /// Opens another folder. False, and nothing changes, when there is no such folder.
    bool setPath(const QString &path);

    /// Opens a folder, or what is left of the way to it, and reads it from the disk even if it is open already.
    void readPath(const QString &path);

    /// The program path of a row's folder; "" past the end.
    QString folderAt(int row) const { return m_folders.value(row); }

Q_SIGNALS:
    /// Another folder is open, or the open one was read again.
    void Change();

protected:
    void keyboardSearch(const QString &letters) override;

private:
    QString nameAt(int row) const;
    void open(const QString &path);

    QString m_path;
    QString m_letters; // Typed one soon after the other, the last one when ...
    QElapsedTimer m_sinceLetter;
    QStringList m_folders; // Program path by row: the drive's root, each folder down to the open one, its folders.
};

/// The files of one folder that fit a pattern, sorted without regard to case, hidden ones left out.
class FileListBox : public ListBox
{
    Q_OBJECT

public:
    FileListBox(QWidget *parent, const ControlSetup &setup, const QString &pattern);

    /// The folder as a program path.
    QString Path() const { return m_path; }

    /// Shows another folder; nothing is chosen. False, and nothing changes, when there is no such folder.
    bool setPath(const QString &path);

    /// Reads the folder again. The chosen name stays chosen when it is still there; no Click().
    void Refresh();

    /// The endings of the pattern ("mp3", "wav" …).
    const QStringList &extensions() const { return m_extensions; }

    /// The program path of a row's file, with one backslash before the name.
    QString filePath(int row) const;

Q_SIGNALS:
    void PathChange();

private:
    NameList readFolder() const;

    QString m_path;
    QStringList m_extensions;
};
