// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/desktop_application.h"

#include "platform/drives.h"
#include "platform/folders.h"

#include <QDBusError>
#include <QEventLoop>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int patienceMs = 2000;
} // namespace

QString DesktopApplication::waitForFirstWish()
{
    QEventLoop loop;
    connect(this, &DesktopApplication::firstWishTold, &loop, &QEventLoop::quit);
    QTimer::singleShot(patienceMs, &loop, &QEventLoop::quit);
    m_isWaiting = true;
    loop.exec();
    m_isWaiting = false;
    return m_firstWish;
}

void DesktopApplication::Activate(const QVariantMap &platformData)
{
    take({}, platformData);
}

// One song plays at a time: the first that is there.
void DesktopApplication::Open(const QStringList &uris, const QVariantMap &platformData)
{
    for (const QString &uri : uris)
        if (const QString path = fileOfUri(uri); !path.isEmpty())
            return take(path, platformData);
    take({}, platformData);
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, u"There is no such file: "_s + uris.join(u", "_s));
}

// There are no actions beside opening.
void DesktopApplication::ActivateAction(const QString &name, const QVariantList &, const QVariantMap &)
{
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, u"There is no such action: "_s + name);
}

void DesktopApplication::take(const QString &song, const QVariantMap &platformData)
{
    // By this Wayland knows that the user has asked for the window; Qt looks for it there.
    if (const QByteArray token = platformData.value(u"activation-token"_s).toByteArray(); !token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token);
    if (std::exchange(m_isWaiting, false)) {
        m_firstWish = song;
        Q_EMIT firstWishTold();
        return;
    }
    if (!song.isEmpty())
        Q_EMIT songWanted(song);
    Q_EMIT raiseWanted();
}

QString fileOfUri(const QString &uri)
{
    const QString path = pathOfUri(uri);
    return !path.isEmpty() && fileLength(path) ? path : QString();
}
