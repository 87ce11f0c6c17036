// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/fonts.h"

#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace
{
const std::array<QStringList, static_cast<std::size_t>(fonts::Face::Count)> &designFamilies()
{
    static const std::array families = {
        QStringList{u"Arial"_s, u"Liberation Sans"_s}, QStringList{u"Small Fonts"_s, u"Liberation Sans"_s},
        QStringList{u"Matisse ITC"_s, u"Liberation Sans"_s}, QStringList{u"Comic Sans MS"_s, u"Comic Neue"_s}};
    return families;
}

QStringList familiesOf(std::size_t face)
{
    const QString &named = currentSkin().families.at(face);
    return named.isEmpty() ? designFamilies().at(face) : QStringList{named} + designFamilies().at(face);
}
} // namespace

QFont fonts::font(Face face, int pixels, QFont::Weight weight)
{
    QFont font(familiesOf(static_cast<std::size_t>(face)));
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

QFont fonts::inSkin(const QFont &font)
{
    for (std::size_t face = 0; face < designFamilies().size(); ++face) {
        const QStringList &design = designFamilies().at(face);
        if (font.families().mid(font.families().size() - design.size()) != design)
            continue;
        QFont renewed = font;
        renewed.setFamilies(familiesOf(face));
        return renewed;
    }
    return font;
}
