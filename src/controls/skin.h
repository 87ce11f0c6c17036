// SPDX-License-Identifier: GPL-3.0-or-later
// The skin that the player wears. Whoever paints asks here each time, so another skin shows with the next painting.
#pragma once

#include "skins/palette.h"

#include <QColor>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>

/// The faces of the design, each for its own kind of text.
enum class SkinFace { Arial, SmallFonts, MatisseItc, ComicSansMs, Count };

/// The place of a colour in the arrays of colours.
constexpr std::size_t indexOf(Colour which)
{
    return static_cast<std::size_t>(which);
}

/// Its name, as it stands in a skin.ini.
QString colourName(Colour which);

/// Colours by their names, families of fonts, and where the pictures are.
struct Skin {
    QString name;        // Of its folder: by that it is chosen.
    QString title;       // What people read.
    QStringList folders; // Its own host folder, then those of the skins that it is based on.
    std::array<QRgb, indexOf(Colour::Count)> colours;
    std::array<QString, static_cast<std::size_t>(SkinFace::Count)> families; // "": the design's.
};

/// The skin that is built in but for its pictures, and is worn until another one is.
Skin firstSkin();

const Skin &currentSkin();

/// How many skins have been worn: what was made for another number is out of date.
int skinNumber();

/// A colour of the skin that is worn.
QColor skinColour(Colour which);

/// Puts another skin in the place of the current one; wearSkin() shows it.
void setCurrentSkin(const Skin &skin);

/// Called with a line about each thing that is wrong with a skin.
using TellFault = std::function<void(const QString &fault)>;

/// Says on stderr what is wrong with a skin, each text once until they are forgotten.
void complain(const QString &skin, const QString &fault);

/// What has been complained of, and forgetting it.
QStringList complaints();
void forgetComplaints();
