// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/terminal.h"

#include <QByteArrayView>
#include <QString>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{
QtMessageHandler usualHandler = nullptr;
QByteArray firstTrouble; // Of the search now going on: the cause. What follows is its consequences.

void keepTrouble(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtDebugMsg) {
        usualHandler(type, context, text);
    } else if (type == QtFatalMsg) {
        complain("cannot start: " + (firstTrouble.isEmpty() ? text.toUtf8() : firstTrouble));
        std::_Exit(CannotStart);
    } else if (firstTrouble.isEmpty() && QByteArrayView(context.category).startsWith("qt.qpa")) {
        firstTrouble = text.toUtf8();
    }
}
} // namespace

ExitStatus printAnswer(const QByteArray &text)
{
    if (std::fputs(text.constData(), stdout) >= 0 && std::fflush(stdout) == 0)
        return Fine;
    complain(QByteArray("cannot write: ") + std::strerror(errno));
    return CannotStart;
}

void complain(const QByteArray &text)
{
    std::fprintf(stderr, "kiv-mp3: %s\n", text.simplified().constData());
}

DisplaySearch::DisplaySearch()
{
    firstTrouble.clear();
    usualHandler = qInstallMessageHandler(keepTrouble);
}

DisplaySearch::~DisplaySearch()
{
    qInstallMessageHandler(usualHandler);
}
