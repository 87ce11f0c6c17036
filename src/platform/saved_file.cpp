// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/saved_file.h"

#include "platform/byte_file.h"
#include "platform/drives.h"

#include <QFile>
#include <QSaveFile>

std::optional<QByteArray> loadFile(const QString &path)
{
    const auto file = ByteFile::open(path, ByteFile::Access::Read);
    return file ? std::optional<QByteArray>(file->readAt(0, file->length())) : std::nullopt;
}

bool saveFile(const QString &path, QByteArrayView bytes)
{
    QSaveFile file(QFile::decodeName(hostPathOnDisk(path)));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    // Flushed by hand: commit() takes no notice when its own flush meets a full disk.
    return file.write(bytes.data(), bytes.size()) == bytes.size() && file.flush() && file.commit();
}
