// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/skin_text.h"

#include "base/ini_file.h"
#include "controls/contrast.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::array<const char *, static_cast<std::size_t>(SkinFace::Count)> faceNames = {"Text", "Small", "Display",
                                                                                           "Hand"};
const QString skinSection = u"Skin"_s;
const QString colourSection = u"Colours"_s;
const QString fontSection = u"Fonts"_s;

bool isHexDigit(QChar character)
{
    return (character >= u'0' && character <= u'9') || (character.toLower() >= u'a' && character.toLower() <= u'f');
}

// "#rrggbb", or "#rrggbbaa" for what is laid over something else.
std::optional<QRgb> colourIn(const QString &text, bool hasOpacity)
{
    const QString digits = text.mid(1);
    const bool isHex = text.startsWith(u'#') && std::all_of(digits.begin(), digits.end(), isHexDigit);
    const uint value = digits.toUInt(nullptr, 16);
    if (isHex && digits.size() == 6)
        return 0xFF000000 | value;
    if (isHex && digits.size() == 8 && hasOpacity)
        return (value & 0xFF) << 24 | value >> 8;
    return std::nullopt;
}

void readColours(Skin &skin, const QString &text, const TellFault &fault)
{
    for (std::size_t i = 0; i < palette::entries.size(); ++i) {
        const QString name = QLatin1StringView(palette::entries.at(i).name);
        const QString value = iniValue(text, colourSection, name);
        if (value.isEmpty())
            continue;
        if (const auto colour = colourIn(value, qAlpha(palette::entries.at(i).value) != 255))
            skin.colours.at(i) = *colour;
        else
            fault(u"%1=%2 is no colour, #rrggbb would be one; the one before is shown"_s.arg(name, value));
    }
    for (const QString &key : iniKeys(text, colourSection)) {
        const auto isName = [&key](const palette::Entry &entry) {
            return key.compare(QLatin1StringView(entry.name), Qt::CaseInsensitive) == 0;
        };
        if (std::none_of(palette::entries.begin(), palette::entries.end(), isName))
            fault(u"there is no colour named %1"_s.arg(key));
    }
}
} // namespace

QString titleInText(const QString &text)
{
    return iniValue(text, skinSection, u"Name");
}

QString baseInText(const QString &text)
{
    return iniValue(text, skinSection, u"BasedOn");
}

void readSkinText(Skin &skin, const QString &text, const TellFault &fault)
{
    const Skin before = skin;
    for (std::size_t i = 0; i < faceNames.size(); ++i) {
        if (const QString family = iniValue(text, fontSection, QLatin1StringView(faceNames.at(i)).toString());
            !family.isEmpty())
            skin.families.at(i) = family;
    }
    readColours(skin, text, fault);
    makeSeen(skin, before, fault);
}
