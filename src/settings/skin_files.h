// SPDX-License-Identifier: GPL-3.0-or-later
// What is a skin's in a folder or in a zip archive that comes from anywhere. Only files with the names that a skin's
// have are read; all else is passed over, and no link is followed.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

struct SkinFiles {
    QString name;                    // Of the folder, else of the archive without its ending. Anything may stand in it.
    QString folder;                  // The folder that was read, as a program path; "" for an archive.
    QMap<QString, QByteArray> files; // By the names that the player looks for.
    QString fault;                   // Why there is no skin, a whole sentence; "" when there is one.
};

/// The names that the files of a skin have, its skin.ini first.
QStringList skinFileNames();

/// Is it meant as a skin: a folder with a skin.ini, or a .zip? Costs no look into it.
bool isMeantAsSkin(const QString &path);

/// The skin in a folder or archive (a program path): at its top, or in an archive in the one folder that is nearest to
/// it. A name may have another case. An unreadable file, a damaged archive, or a size that no skin has is a fault.
SkinFiles skinIn(const QString &path);
