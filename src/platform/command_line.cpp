// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/command_line.h"

#include "platform/drives.h"

namespace
{
bool isQuoted(const QString &text)
{
    return text.size() >= 2 && text.startsWith(u'"') && text.endsWith(u'"');
}
} // namespace

QString commandLineText(const QStringList &arguments)
{
    QStringList quoted;
    for (const QString &argument : arguments) {
        const QString path = isQuoted(argument) ? argument.sliced(1, argument.size() - 2) : argument;
        quoted += u'"' + programPath(path) + u'"';
    }
    return quoted.join(u' ');
}
