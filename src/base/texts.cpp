// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/texts.h"

QStringView untilNul(QStringView text)
{
    const qsizetype nul = text.indexOf(QChar());
    return nul < 0 ? text : text.first(nul);
}

QStringView withoutBlanksBefore(QStringView text, CharacterTest blank)
{
    while (!text.isEmpty() && blank(text.front()))
        text = text.sliced(1);
    return text;
}

QStringView withoutBlanksAfter(QStringView text, CharacterTest blank)
{
    while (!text.isEmpty() && blank(text.back()))
        text.chop(1);
    return text;
}

QStringView withoutBlanks(QStringView text, CharacterTest blank)
{
    return withoutBlanksBefore(withoutBlanksAfter(text, blank), blank);
}

QStringView wholeCharacters(QStringView text, qsizetype most)
{
    if (text.size() <= most)
        return text;
    const bool cutsPair = most > 0 && characterLength(text, most - 1) == 2;
    return text.first(cutsPair ? most - 1 : most);
}

QString inOneLine(QString text)
{
    const auto breaks = [](QChar character) {
        const QChar::Category category = character.category();
        const bool turns =
            (character >= u'\u202A' && character <= u'\u202E') || (character >= u'\u2066' && character <= u'\u2069');
        return turns || category == QChar::Other_Control || category == QChar::Separator_Line ||
               category == QChar::Separator_Paragraph;
    };
    std::replace_if(text.begin(), text.end(), breaks, u' ');
    return text;
}

QString FormatPlayTime(std::int32_t seconds)
{
    const auto twoPlaces = [](int number) { return QString::number(number).rightJustified(2, u'0'); };
    const int minutes = seconds / 60;
    const int hours = minutes / 60;
    const int rest = minutes % 60;
    const QString start = hours != 0 ? QString::number(hours) + u':' + twoPlaces(rest) : QString::number(rest);
    return start + u':' + twoPlaces(seconds % 60);
}
