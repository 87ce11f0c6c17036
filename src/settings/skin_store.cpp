// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/skin_store.h"

#include "base/texts.h"
#include "controls/skin_text.h"
#include "platform/ansi_text.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folders.h"

#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype mostBases = 8;
constexpr qsizetype longestTitle = 60;

// Of UTF-16 too, as some editors write it, where a mark says so. Without the characters that a terminal would obey,
// and those of a torn file.
QString plainText(QByteArrayView bytes)
{
    const auto isObeyed = [](QChar character) {
        return character.category() == QChar::Other_Control && !character.isSpace();
    };
    const auto marked = QStringConverter::encodingForData(bytes);
    const bool isWide = marked && marked != QStringConverter::Utf8;
    QString text = isWide ? QStringDecoder(*marked).decode(bytes) : decodeTextFile(bytes);
    return text.removeIf(isObeyed);
}

// The text of a skin's file, "" where it has none; nothing when it cannot be read.
std::optional<QString> skinText(const QString &folder)
{
    const QString path = folder + u'/' + skinFileName;
    if (!hostEntryExists(QFile::encodeName(path)))
        return QString();
    const auto file = ByteFile::open(programPath(path), ByteFile::Access::Read);
    const bool isText = file && file->length() <= longestSkinText;
    const auto bytes = isText ? file->readAt(0, file->length()) : std::nullopt;
    return bytes ? std::optional(plainText(*bytes)) : std::nullopt;
}

QString shownTitle(const QString &text)
{
    return wholeCharacters(inOneLine(text).simplified(), longestTitle).toString();
}

SkinPlace placeOf(const QString &name, const QString &folder)
{
    const QString title = shownTitle(titleInText(skinText(folder).value_or(QString())));
    return {name, title.isEmpty() ? shownTitle(QFileInfo(folder).fileName()) : title, folder};
}

bool isSkin(const QString &folder)
{
    return QFileInfo(folder + u'/' + skinFileName).isFile();
}

QString usersFolder()
{
    return QFile::decodeName(hostPath(paths::userSkins));
}

QList<SkinPlace> skinsIn(const QString &folder)
{
    QList<SkinPlace> skins;
    for (const QString &name : foldersIn(programPath(folder)).toStringList()) {
        if (const QString skin = folder + u'/' + name; isSkin(skin))
            skins += placeOf(name, skin);
    }
    const auto byTitle = [](const SkinPlace &a, const SkinPlace &b) {
        return a.title.compare(b.title, Qt::CaseInsensitive) < 0;
    };
    std::sort(skins.begin(), skins.end(), byTitle);
    return skins;
}

SkinPlace firstPlace()
{
    const Skin first = firstSkin();
    return {first.name, first.title, first.folders.value(0)};
}

bool isFirst(const SkinPlace &place)
{
    return place.name == firstSkin().name;
}

// As a rule the name is a folder's, as it is spelled: then no other skin is looked at.
std::optional<SkinPlace> skinNamed(const QString &name)
{
    if (name == firstSkin().name)
        return firstPlace();
    for (const QString &folder : {skinsFolder(), usersFolder()}) {
        if (const QString skin = folder + u'/' + name; !name.contains(u'/') && isSkin(skin))
            return placeOf(name, skin);
    }
    const QList<SkinPlace> skins = skinsThere();
    for (const auto part : {&SkinPlace::name, &SkinPlace::title}) {
        for (const SkinPlace &skin : skins) {
            if ((skin.*part).compare(name, Qt::CaseInsensitive) == 0)
                return skin;
        }
    }
    return std::nullopt;
}

struct Layer {
    SkinPlace place;
    QString text; // Of its skin.ini.
};

// Those that a skin is based on, the lowest first, and itself; but not the first skin. A circle ends as a chain that is
// too long does.
QList<Layer> withBases(const SkinPlace &place)
{
    QList<Layer> chain;
    for (std::optional<SkinPlace> at = place; at && !isFirst(*at);) {
        const QString title = at->title;
        const std::optional<QString> text = skinText(at->folder);
        if (!text) // Told of what is worn alone.
            complain(title, u"%1 cannot be read"_s.arg(skinFileName));
        chain.prepend({*at, text.value_or(QString())});
        const QString base = baseInText(chain.first().text);
        at = skinNamed(base.isEmpty() ? firstSkin().name : base);
        if (!at || chain.size() > mostBases) {
            complain(title, u"there is no skin \"%1\" to base it on"_s.arg(base));
            break;
        }
    }
    return chain;
}
} // namespace

QList<SkinPlace> skinsThere()
{
    QList<SkinPlace> skins = {firstPlace()};
    for (const SkinPlace &skin : skinsIn(skinsFolder()) + skinsIn(usersFolder())) {
        const auto isIt = [&skin](const SkinPlace &known) {
            return skin.name.compare(known.name, Qt::CaseInsensitive) == 0;
        };
        if (std::none_of(skins.begin(), skins.end(), isIt))
            skins += skin;
    }
    return skins;
}

std::optional<SkinPlace> findSkin(const QString &nameOrFolder)
{
    if (nameOrFolder.isEmpty())
        return std::nullopt;
    if (auto skin = skinNamed(nameOrFolder))
        return skin;
    const QFileInfo folder(QDir::cleanPath(nameOrFolder)); // Without a slash at its end.
    if (!folder.isDir())
        return std::nullopt;
    return placeOf(folder.absoluteFilePath(), folder.absoluteFilePath());
}

Skin readSkin(const SkinPlace &place)
{
    Skin skin = firstSkin();
    for (const Layer &layer : withBases(place)) {
        const auto tell = [&layer](const QString &fault) { complain(layer.place.title, fault); };
        readSkinText(skin, layer.text, tell);
        skin.folders.prepend(layer.place.folder);
    }
    skin.name = place.name;
    skin.title = place.title;
    return skin;
}

Skin skinAtStart(const QString &wanted)
{
    const bool hasPictures = qEnvironmentVariableIsSet("KIV_MP3_SKINS");
    const QString name = !wanted.isEmpty() ? wanted : hasPictures ? QString() : chosenSkin();
    if (name.isEmpty())
        return firstSkin();
    const auto place = findSkin(name);
    if (!place)
        complain(name, u"it is not there any more"_s);
    return place ? readSkin(*place) : firstSkin();
}

QString chosenSkin()
{
    return plainText(loadFile(paths::chosenSkinFile, longestSkinText).bytes).trimmed();
}

QString keepChosenSkin(const QString &name)
{
    makeDataFolder();
    MakeFolder(paths::userSkins);
    if (saveFile(paths::chosenSkinFile, encodeTextFile(name + u"\n"_s)))
        return {};
    const QString file = displayPath(paths::chosenSkinFile);
    return u"The choice of the skin %1 cannot be kept in %2: %3."_s.arg(name, file, hostErrorText());
}
