// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/folder_picker.h"

#include "platform/drives.h"

#include <QFileDialog>

#include <utility>

namespace
{
struct Rehearsal {
    bool isOn = false;
    QStringList answers;
    QList<FolderPicker::Asked> asked;
};

Rehearsal &rehearsal()
{
    static Rehearsal state;
    return state;
}
} // namespace

QString FolderPicker::BrowseForFolder(QWidget *parent, const QString &title, const QString &startFolder)
{
    if (rehearsal().isOn) {
        rehearsal().asked += Asked{title, startFolder};
        return rehearsal().answers.isEmpty() ? QString() : rehearsal().answers.takeFirst();
    }
    const QString start = QFile::decodeName(hostPathOnDisk(startFolder));
    return programPath(QFileDialog::getExistingDirectory(parent, title, start));
}

void FolderPicker::answerFromNowOn(const QStringList &answers)
{
    rehearsal().isOn = true;
    rehearsal().answers = answers;
}

QList<FolderPicker::Asked> FolderPicker::takeAsked()
{
    return std::exchange(rehearsal().asked, {});
}
