// SPDX-License-Identifier: GPL-3.0-or-later
// Qt asks the bus for a tray once in the life of a program and then believes the answer. So it is not asked before
// there is a tray, and not believed later.
#include "settings/tray_icon.h"

#include "controls/pictures.h"
#include "settings/window_rules.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace
{
const QString watcherName = u"org.kde.StatusNotifierWatcher"_s; // Its service and its interface.
const QString watcherPath = u"/StatusNotifierWatcher"_s;

QIcon playerIcon()
{
    QIcon icon;
    for (const Picture size : {Picture::Icon16, Picture::Icon22, Picture::Icon32, Picture::Icon48})
        icon.addPixmap(picture(size));
    return icon;
}

// Displays without a desktop draw no icons, and Qt's icon cannot live there.
bool hasDesktop()
{
    const QString platform = QGuiApplication::platformName();
    return platform != u"offscreen"_s && platform != u"minimal"_s;
}
} // namespace

TrayIcon::TrayIcon(QObject *parent) : QObject(parent), m_tip(trayTip(u"Zelk of Tessadin Mp3"_s)) {}
TrayIcon::~TrayIcon() = default;

bool TrayIcon::isTrayThere() const
{
    return m_icon && (m_kind == Kind::OnBus ? m_isOnBus.value_or(false) : m_x11Tray->isThere());
}

void TrayIcon::AddTrayIcon()
{
    if (m_x11Tray || !hasDesktop())
        return;
    m_x11Tray = std::make_unique<X11Tray>(
        [this] { QMetaObject::invokeMethod(this, &TrayIcon::trayMayHaveChanged, Qt::QueuedConnection); });
    QDBusConnection bus = QDBusConnection::sessionBus();
    m_busWatcher = std::make_unique<QDBusServiceWatcher>(watcherName, bus);
    connect(m_busWatcher.get(), &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayIcon::askTheBus);
    for (const QString &news : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        bus.connect({}, watcherPath, watcherName, news, this, SLOT(askTheBus()));
    askTheBus();
}

void TrayIcon::askTheBus()
{
    if (!QDBusConnection::sessionBus().isConnected()) {
        m_isOnBus = false;
        trayMayHaveChanged();
        return;
    }
    auto question =
        QDBusMessage::createMethodCall(watcherName, watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << watcherName << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto *answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        m_isOnBus = reply.isValid() && reply.value().variant().toBool();
        answer->deleteLater();
        trayMayHaveChanged();
    });
}

void TrayIcon::trayMayHaveChanged()
{
    if (!m_icon && m_x11Tray && m_isOnBus && (*m_isOnBus || m_x11Tray->isThere()))
        makeIcon();
    const bool isThere = isTrayThere();
    if (std::exchange(m_wasThere, isThere) && !isThere)
        Q_EMIT trayGone();
}

void TrayIcon::makeIcon()
{
    m_kind = *m_isOnBus ? Kind::OnBus : Kind::OfX11;
    m_icon = std::make_unique<QSystemTrayIcon>(playerIcon());
    m_icon->setToolTip(m_tip);
    connect(m_icon.get(), &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            Q_EMIT Click();
    });
    m_icon->show();
}

void TrayIcon::UpdateTrayIcon(QIcon &icon, const QString &tip)
{
    if (icon.isNull())
        icon = m_icon ? m_icon->icon() : playerIcon();
    m_tip = trayTip(tip);
    if (!m_icon)
        return;
    if (icon.cacheKey() != m_icon->icon().cacheKey())
        m_icon->setIcon(icon);
    if (m_tip != m_icon->toolTip())
        m_icon->setToolTip(m_tip);
}

void TrayIcon::renewIcon()
{
    if (m_icon)
        m_icon->setIcon(playerIcon());
}

void TrayIcon::RemoveTrayIcon()
{
    m_icon.reset();
    m_busWatcher.reset();
    m_x11Tray.reset();
}
