// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/skin_text.h"

#include "base/ini_file.h"

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{
struct Pair {
    Colour text;
    Colour ground;
};

// The first ground of a text is the one that it has without a picture.
constexpr std::array pairs = {
    Pair{Colour::caption, Colour::graphite},
    Pair{Colour::caption, Colour::face},
    Pair{Colour::captionDim, Colour::graphite},
    Pair{Colour::warmWhite, Colour::graphiteDark},
    Pair{Colour::listText, Colour::wellBackground},
    Pair{Colour::listText, Colour::listBackground},
    Pair{Colour::selectionText, Colour::selection},
    Pair{Colour::displayText, Colour::displayBackground},
    Pair{Colour::displayDim, Colour::displayBackground},
    Pair{Colour::accentText, Colour::accent},
};

constexpr std::array<const char *, static_cast<std::size_t>(SkinFace::Count)> faceNames = {"Text", "Small", "Display",
                                                                                           "Hand"};
const QString skinSection = u"Skin"_s;
const QString colourSection = u"Colours"_s;
const QString fontSection = u"Fonts"_s;

std::size_t indexOf(Colour colour)
{
    return static_cast<std::size_t>(colour);
}

QString inHex(QRgb colour)
{
    return QColor::fromRgb(colour).name();
}

// "#rrggbb", or "#rrggbbaa" for what is laid over something else.
std::optional<QRgb> colourIn(const QString &text, bool hasOpacity)
{
    const QString digits = text.mid(1);
    bool isNumber = false;
    const uint value = digits.toUInt(&isNumber, 16);
    const bool isHex = text.startsWith(u'#') && isNumber && digits.front() != u'+';
    if (isHex && digits.size() == 6)
        return 0xFF000000 | value;
    if (isHex && digits.size() == 8 && hasOpacity)
        return (value & 0xFF) << 24 | value >> 8;
    return std::nullopt;
}

double luminance(QRgb colour)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

// The least that a text has on its grounds, and on which.
std::pair<double, Colour> worstGround(const Skin &skin, Colour text, QRgb colour)
{
    std::pair worst(21.0, Colour::graphite);
    for (const Pair &pair : pairs) {
        if (pair.text == text)
            worst = std::min(worst, {contrast(colour, skin.colours.at(indexOf(pair.ground))), pair.ground});
    }
    return worst;
}

// On any two grounds one of these can be read.
QRgb readableColour(const Skin &skin, Colour text, QRgb before)
{
    constexpr QRgb black = qRgb(0, 0, 0);
    constexpr QRgb grey = qRgb(118, 118, 118);
    constexpr QRgb white = qRgb(255, 255, 255);
    for (const QRgb tried : {before, black, white}) {
        if (worstGround(skin, text, tried).first >= leastContrast)
            return tried;
    }
    return grey;
}

void readColours(Skin &skin, const QString &text, const std::function<void(const QString &)> &fault)
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

void makeReadable(Skin &skin, const Skin &before, const std::function<void(const QString &)> &fault)
{
    for (const Pair &pair : pairs) {
        QRgb &colour = skin.colours.at(indexOf(pair.text));
        const auto [ratio, ground] = worstGround(skin, pair.text, colour);
        if (ratio >= leastContrast)
            continue;
        const QRgb shown = readableColour(skin, pair.text, before.colours.at(indexOf(pair.text)));
        fault(u"%1=%2 can hardly be read on %3 (%4 to 1); %5 is shown"_s.arg(
            colourName(pair.text), inHex(colour), colourName(ground), QString::number(ratio, 'f', 1), inHex(shown)));
        colour = shown;
    }
}
} // namespace

double contrast(QRgb first, QRgb second)
{
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

Colour groundOf(Colour text)
{
    const auto isOfText = [text](const Pair &pair) { return pair.text == text; };
    const auto pair = std::find_if(pairs.begin(), pairs.end(), isOfText);
    return pair == pairs.end() ? Colour::graphite : pair->ground;
}

QString colourName(Colour which)
{
    return QLatin1StringView(palette::entries.at(indexOf(which)).name);
}

QString baseInText(const QString &text)
{
    return iniValue(text, skinSection, u"BasedOn");
}

QString titleInText(const QString &text)
{
    return iniValue(text, skinSection, u"Name");
}

void readSkinText(Skin &skin, const QString &text, const std::function<void(const QString &)> &fault)
{
    const Skin before = skin;
    if (const QString title = titleInText(text); !title.isEmpty())
        skin.title = title;
    for (std::size_t i = 0; i < faceNames.size(); ++i) {
        if (const QString family = iniValue(text, fontSection, QLatin1StringView(faceNames.at(i)).toString());
            !family.isEmpty())
            skin.families.at(i) = family;
    }
    readColours(skin, text, fault);
    makeReadable(skin, before, fault);
}
