// SPDX-License-Identifier: GPL-3.0-or-later
// The files of one folder that fit a pattern, sorted without regard to case, hidden ones left out.
#pragma once

#include "controls/list_box.h"

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
    QStringList readFolder() const;

    QString m_path;
    QStringList m_extensions;
};
