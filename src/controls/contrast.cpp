// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/contrast.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr double leastOfSigns = 1.5; // What is no text and has a shape of its own.

double luminance(QRgb colour)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

double leastOf(const palette::Pair &pair)
{
    return pair.isText ? leastContrast : leastOfSigns;
}

double contrastOn(const Skin &skin, const palette::Pair &pair, QRgb colour)
{
    return contrast(colour, skin.colours.at(indexOf(pair.ground)));
}

bool isSeen(const Skin &skin, Colour which, QRgb colour)
{
    return std::all_of(palette::pairs.begin(), palette::pairs.end(), [&](const palette::Pair &pair) {
        return pair.colour != which || contrastOn(skin, pair, colour) >= leastOf(pair);
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

QString inHex(QRgb colour)
{
    return QColor::fromRgb(colour).name();
}
} // namespace

double contrast(QRgb first, QRgb second)
{
    const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
    return (lighter + 0.05) / (darker + 0.05);
}

Colour groundOf(Colour text)
{
    const auto isOfText = [text](const palette::Pair &pair) { return pair.isText && pair.colour == text; };
    const auto pair = std::find_if(palette::pairs.begin(), palette::pairs.end(), isOfText);
    return pair == palette::pairs.end() ? Colour::graphite : pair->ground;
}

void makeSeen(Skin &skin, const Skin &before, const TellFault &fault)
{
    for (const palette::Pair &pair : palette::pairs) {
        QRgb &colour = skin.colours.at(indexOf(pair.colour));
        const double ratio = contrastOn(skin, pair, colour);
        if (ratio >= leastOf(pair))
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
