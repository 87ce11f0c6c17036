// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's folder picker. A test answers beforehand and reads what was asked; no dialog opens then.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QWidget;

class FolderPicker
{
public:
    struct Asked {
        QString title;
        QString startFolder;
    };

    /// Asks for a folder, starting at startFolder. The chosen folder as a program path; "" when the user chose none.
    static QString BrowseForFolder(QWidget *parent, const QString &title, const QString &startFolder);

    /// From now on nothing opens: questions are noted and answered in the order of the answers, "" after the last.
    static void answerFromNowOn(const QStringList &answers);

    /// The questions noted since the last call.
    static QList<Asked> takeAsked();
};
