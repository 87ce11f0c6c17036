// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/terminal.h"

#include "platform/drives.h"
#include "platform/file_names.h"

#include <QByteArrayView>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{
bool isQuoted(const QString &text)
{
    return text.size() >= 2 && text.startsWith(u'"') && text.endsWith(u'"');
}

QtMessageHandler usualHandler = nullptr;
QByteArray firstMessage; // Of Qt's display plug-ins: the cause. The next ones are its consequences.

void keepMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg) {
        usualHandler(type, context, text);
    } else if (type == QtFatalMsg) {
        printError("cannot start: " + (firstMessage.isEmpty() ? text.toUtf8() : firstMessage));
        std::_Exit(CannotStart);
    } else if (firstMessage.isEmpty() && QByteArrayView(context.category).startsWith("qt.qpa")) {
        firstMessage = text.toUtf8();
    }
}
} // namespace

QString commandLineText(const QByteArray &file)
{
    const QString argument = textFromBytes(file);
    const QString name = isQuoted(argument) ? argument.sliced(1, argument.size() - 2) : argument;
    const bool isUri = name.startsWith("file:"_L1, Qt::CaseInsensitive);
    const QString path = isUri ? pathOfUri(name) : QString();
    return u'"' + (path.isEmpty() ? programPath(name) : path) + u'"';
}

ExitStatus printAnswer(const QByteArray &text)
{
    if (std::fputs(text.constData(), stdout) >= 0 && std::fflush(stdout) == 0)
        return Fine;
    printError(QByteArray("cannot write: ") + std::strerror(errno));
    return CannotStart;
}

void printError(const QByteArray &text)
{
    std::fprintf(stderr, "kiv-mp3: %s\n", text.simplified().constData());
}

MissingDisplayHandler::MissingDisplayHandler()
{
    firstMessage.clear();
    usualHandler = qInstallMessageHandler(keepMessage);
}

MissingDisplayHandler::~MissingDisplayHandler()
{
    qInstallMessageHandler(usualHandler);
}
