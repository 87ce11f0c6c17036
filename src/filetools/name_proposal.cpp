// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/name_proposal.h"

#include "filetools/clean_name.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype longestExtension = 4;

// Blanks only: tabs and the like belong to the name.
QString withoutBlanksBefore(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    return text.toString();
}

QString withoutBlanksAfter(QStringView text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text.toString();
}

QString joined(const QString &left, const QString &right)
{
    return left + u" - "_s + right;
}

// Where the extension begins, its dot included; the end of the name when it has none.
qsizetype extensionStart(QStringView name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot < 0)
        return name.size();
    const QStringView extension = name.sliced(dot + 1);
    const bool plain = std::all_of(extension.begin(), extension.end(), [](QChar c) { return c.isLetterOrNumber(); });
    return plain && !extension.isEmpty() && extension.size() <= longestExtension ? dot : name.size();
}
} // namespace

NameProposal proposeName(const QString &fileName)
{
    const qsizetype first = fileName.indexOf(u'-');
    if (first < 0)
        return {CleanName(fileName), std::nullopt};
    const qsizetype second = fileName.indexOf(u'-', first + 1);
    const qsizetype split = second < 0 ? first : second;
    const QStringView name(fileName);
    const QString left = withoutBlanksAfter(name.first(split));
    const QString right = withoutBlanksBefore(name.sliced(split + 1));
    return {CleanName(joined(left, right)), withoutBlanksBefore(name.sliced(first + 1))};
}

std::optional<QString> withSidesSwapped(const QString &fileName)
{
    const QStringView extension = QStringView(fileName).sliced(extensionStart(fileName));
    const QStringView name = QStringView(fileName).chopped(extension.size());
    const qsizetype hyphen = name.indexOf(u'-');
    if (hyphen < 0)
        return std::nullopt;
    const QString left = withoutBlanksBefore(withoutBlanksAfter(name.first(hyphen)));
    const QString right = withoutBlanksBefore(withoutBlanksAfter(name.sliced(hyphen + 1)));
    return joined(right, left) + extension.toString();
}
