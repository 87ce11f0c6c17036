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
    Colour colour;
    Colour ground;
    double least;
};

constexpr double leastOfSigns = 1.5; // What is no text and has a shape of its own.

// Signs go before texts, since one of them is a ground. The first ground of a text is the one without a picture.
constexpr std::array pairs = {
    Pair{Colour::selection, Colour::listBackground, leastOfSigns},
    Pair{Colour::thumbFace, Colour::wellBackground, leastOfSigns},
    Pair{Colour::focusRing, Colour::listBackground, leastOfSigns},
    Pair{Colour::focusRing, Colour::graphite, leastOfSigns},
    Pair{Colour::accentLight, Colour::listBackground, leastOfSigns},
    Pair{Colour::caption, Colour::graphite, leastContrast},
    Pair{Colour::caption, Colour::face, leastContrast},
    Pair{Colour::captionDim, Colour::graphite, leastContrast},
    Pair{Colour::warmWhite, Colour::graphiteDark, leastContrast},
    Pair{Colour::listText, Colour::wellBackground, leastContrast},
    Pair{Colour::listText, Colour::listBackground, leastContrast},
    Pair{Colour::selectionText, Colour::selection, leastContrast},
    Pair{Colour::displayText, Colour::displayBackground, leastContrast},
    Pair{Colour::displayDim, Colour::displayBackground, leastContrast},
    Pair{Colour::accentText, Colour::accent, leastContrast},
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

double luminance(QRgb colour)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

double contrastOn(const Skin &skin, const Pair &pair, QRgb colour)
{
    return contrast(colour, skin.colours.at(indexOf(pair.ground)));
}

bool isSeen(const Skin &skin, Colour which, QRgb colour)
{
    return std::all_of(pairs.begin(), pairs.end(), [&](const Pair &pair) {
        return pair.colour != which || contrastOn(skin, pair, colour) >= pair.least;
    });
}

// On any two grounds one of these is seen.
QRgb colourThatIsSeen(const Skin &skin, Colour which, QRgb before)
{
    constexpr QRgb black = qRgb(0, 0, 0);
    constexpr QRgb grey = qRgb(118, 118, 118);
    constexpr QRgb white = qRgb(255, 255, 255);
    for (const QRgb tried : {before, black, white}) {
        if (isSeen(skin, which, tried))
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

void makeSeen(Skin &skin, const Skin &before, const std::function<void(const QString &)> &fault)
{
    for (const Pair &pair : pairs) {
        QRgb &colour = skin.colours.at(indexOf(pair.colour));
        const double ratio = contrastOn(skin, pair, colour);
        if (ratio >= pair.least)
            continue;
        const QRgb inherited = before.colours.at(indexOf(pair.colour));
        const QRgb shown = colourThatIsSeen(skin, pair.colour, inherited);
        if (colour != inherited) // Else only the ground is the skin's own, and the colour goes along.
            fault(u"%1=%2 can hardly be seen on %3 (%4 to 1); %5 is shown"_s.arg(
                colourName(pair.colour), inHex(colour), colourName(pair.ground), QString::number(ratio, 'f', 1),
                inHex(shown)));
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
    const auto isOfText = [text](const Pair &pair) { return pair.colour == text; };
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
    for (std::size_t i = 0; i < faceNames.size(); ++i) {
        if (const QString family = iniValue(text, fontSection, QLatin1StringView(faceNames.at(i)).toString());
            !family.isEmpty())
            skin.families.at(i) = family;
    }
    readColours(skin, text, fault);
    makeSeen(skin, before, fault);
}
