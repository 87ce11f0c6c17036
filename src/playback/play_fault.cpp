// SPDX-License-Identifier: GPL-3.0-or-later
#include "playback/play_fault.h"

#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folders.h"

using namespace Qt::StringLiterals;

namespace
{
QString sentence(PlayFault fault)
{
    switch (fault) {
    case PlayFault::LibraryMissing:
        return u"The song \"%1\" is no MP3 and no WAV, and what plays other kinds is missing: the library libmpv.so.2."_s;
    case PlayFault::SongMissing:
        return u"The song \"%1\" was not found."_s;
    case PlayFault::SongEmpty:
        return u"The song \"%1\" is an empty file."_s;
    case PlayFault::DeviceRefused:
        return u"The song \"%1\" cannot be played, because the sound output cannot be opened."_s;
    case PlayFault::NoPermission:
        return u"You have no permission to read the song \"%1\"."_s;
    case PlayFault::IsFolder:
        return u"\"%1\" is a folder and no song."_s;
    case PlayFault::NotSound:
        return u"The file \"%1\" is no song, is damaged, or is of a kind that is not known."_s;
    case PlayFault::NoSoundInside:
        return u"The file \"%1\" holds no sound that can be played."_s;
    case PlayFault::Unknown:
        break;
    }
    return u"The song \"%1\" cannot be played."_s;
}
} // namespace

ErrorRecord playError(PlayFault fault, const QString &path, const QString &detail)
{
    const QString description = sentence(fault).arg(displayPath(path));
    return {static_cast<int>(fault), u"MediaPlayer1"_s,
            detail.isEmpty() ? description : description + u" ("_s + detail + u')'};
}

std::optional<PlayFault> faultBeforePlaying(const QString &path)
{
    if (path.endsWith(u'\\') || folderExists(path))
        return PlayFault::IsFolder;
    const std::optional<qint64> length = fileLength(path);
    if (!length)
        return PlayFault::SongMissing;
    if (*length == 0)
        return PlayFault::SongEmpty;
    if (!ByteFile::open(path, ByteFile::Access::Read))
        return PlayFault::NoPermission;
    return std::nullopt;
}
