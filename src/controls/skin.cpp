// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/skin.h"

#include "base/texts.h"
#include "platform/desktop.h"

using namespace Qt::StringLiterals;

namespace
{
struct Wardrobe {
    Skin worn = firstSkin();
    int number = 0;
    QStringList complaints;
};

Wardrobe &wardrobe()
{
    static Wardrobe only;
    return only;
}
} // namespace

QString colourName(Colour which)
{
    return QLatin1StringView(palette::entries.at(indexOf(which)).name);
}

Skin firstSkin()
{
    Skin skin{u"graphite"_s, u"Graphite"_s, {firstSkinFolder()}, {}, {}};
    for (std::size_t i = 0; i < palette::entries.size(); ++i)
        skin.colours.at(i) = palette::entries.at(i).value;
    return skin;
}

const Skin &currentSkin()
{
    return wardrobe().worn;
}

int skinNumber()
{
    return wardrobe().number;
}

QColor skinColour(Colour which)
{
    return QColor::fromRgba(wardrobe().worn.colours.at(indexOf(which)));
}

void setCurrentSkin(const Skin &skin)
{
    wardrobe().worn = skin;
    ++wardrobe().number;
}

void complain(const QString &skin, const QString &fault)
{
    const QString text = inOneLine(u"skin \"%1\": %2"_s.arg(skin, fault));
    if (wardrobe().complaints.contains(text))
        return;
    wardrobe().complaints += text;
    qWarning("%s", qUtf8Printable(text));
}

QStringList complaints()
{
    return wardrobe().complaints;
}

void forgetComplaints()
{
    wardrobe().complaints.clear();
}
