// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/skin_install.h"

#include "base/names.h"
#include "base/texts.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/file_names.h"
#include "platform/folders.h"
#include "platform/scratch_folder.h"
#include "settings/skin_store.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype longestName = 60;

bool mayStand(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character) ||
           (character < 0x80 && u" -_.()"_s.contains(QChar(character)));
}

// One that would be hidden, or taken for an option.
bool isNoStart(QChar character)
{
    return character == u' ' || character == u'.' || character == u'-' || character.isMark();
}

bool isNoEnd(QChar character)
{
    return character == u' ' || character == u'.';
}

// The name in the user's or the player's skins of a folder that lies there; "" for one from elsewhere.
QString nameAmongSkins(const QString &folder)
{
    const QByteArray path = hostPath(folder);
    for (const QByteArray &place : {path, realPath(path)}) {
        const QByteArray parent = hostFolderOf(place);
        for (const QByteArray &skins : {hostPath(paths::userSkins), QFile::encodeName(skinsFolder())}) {
            if (isSameFile(parent, skins))
                return nameFromHost(place.sliced(parent.size()));
        }
    }
    return {};
}

bool isPlayersOwn(const QString &name)
{
    return foldersIn(programPath(skinsFolder())).toStringList().contains(name, Qt::CaseInsensitive);
}

QString reasonNotToKeep(const QString &name)
{
    if (name.isEmpty())
        return u"The skin has no name that a folder can have: give its folder or archive another one."_s;
    if (isPlayersOwn(name))
        return u"The player has a skin %1 of its own: give the folder of yours another name."_s.arg(name);
    return {};
}

RenameResult writeFolder(const QByteArray &place, const SkinFiles &skin, Existing existing)
{
    QList<QByteArray> names;
    for (const QString &name : skinFileNames())
        names += name.toLatin1();
    auto folder = ScratchFolder::make(hostFolderOf(place), names);
    if (!folder)
        return RenameResult::Failed;
    for (const auto &[name, bytes] : skin.files.asKeyValueRange()) {
        if (!folder->write(name.toLatin1(), bytes))
            return RenameResult::Failed;
    }
    return folder->commit(place, existing);
}
} // namespace

QString keptName(const QString &name)
{
    QString kept;
    for (const char32_t character : name.normalized(QString::NormalizationForm_C).toUcs4()) {
        if (mayStand(character))
            kept += QString::fromUcs4(&character, 1);
    }
    const QStringView text = withoutBlanksBefore(kept, isNoStart);
    return withoutBlanksAfter(wholeCharacters(text, longestName), isNoEnd).toString();
}

KeptSkin keepSkin(const SkinFiles &skin, Existing existing)
{
    if (!skin.fault.isEmpty())
        return {RenameResult::Failed, {}, skin.fault};
    if (const QString there = nameAmongSkins(skin.folder); findSkin(there)) // A name may have bytes that no skin's has.
        return {RenameResult::Done, there, {}};
    const QString wanted = keptName(skin.name);
    const QString reason = reasonNotToKeep(wanted);
    if (!reason.isEmpty())
        return {RenameResult::Failed, {}, reason};
    const QString place = spelledAsOnDisk(pathIn(paths::userSkins, wanted)); // One of another case has the name too.
    KeptSkin kept{RenameResult::Failed, FileNameFromPath(place), {}};
    makeDataFolder();
    kept.result = writeFolder(hostPath(place), skin, existing);
    if (kept.result == RenameResult::Failed)
        kept.fault = u"%1 cannot be kept in %2: %3."_s.arg(kept.name, displayPath(paths::userSkins), hostErrorText());
    return kept;
}
