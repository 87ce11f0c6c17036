// SPDX-License-Identifier: GPL-3.0-or-later
#include "filetools/name_proposal.h"

#include "base/texts.h"
#include "filetools/clean_name.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype longestExtension = 4;

QString joined(QStringView left, QStringView right, QStringView end = {})
{
    return left.toString() + u" - "_s + right.toString() + end.toString();
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
    const QStringView left = withoutBlanksAfter(name.first(split));
    const QStringView right = withoutBlanksBefore(name.sliced(split + 1));
    return {CleanName(joined(left, right)), withoutBlanksBefore(name.sliced(first + 1)).toString()};
}

std::optional<QString> withSidesSwapped(const QString &fileName)
{
    const QStringView extension = QStringView(fileName).sliced(extensionStart(fileName));
    const QStringView name = QStringView(fileName).chopped(extension.size());
    const qsizetype hyphen = name.indexOf(u'-');
    if (hyphen < 0)
        return std::nullopt;
    const QStringView left = withoutBlanks(name.first(hyphen));
    const QStringView right = withoutBlanks(name.sliced(hyphen + 1));
    return joined(right, left, extension);
}
