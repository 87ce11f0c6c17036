// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/fonts.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QFont fonts::font(Face face, int pixels, QFont::Weight weight)
{
    static const QList<QStringList> families = {{u"Arial"_s, u"Liberation Sans"_s},
                                                {u"Small Fonts"_s, u"Liberation Sans"_s},
                                                {u"Matisse ITC"_s, u"Liberation Sans"_s},
                                                {u"Comic Sans MS"_s, u"Comic Neue"_s}};
    QFont font(families.at(static_cast<int>(face)));
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}
