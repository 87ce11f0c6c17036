// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/tray_icon.h"

#include "controls/pictures.h"
#include "settings/window_rules.h"

#include <QGuiApplication>
#include <QSystemTrayIcon>

using namespace Qt::StringLiterals;

namespace
{
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

TrayIcon::TrayIcon(QObject *parent) : QObject(parent) {}
TrayIcon::~TrayIcon() = default;

bool TrayIcon::isTrayThere() const
{
    return hasDesktop() && QSystemTrayIcon::isSystemTrayAvailable();
}

void TrayIcon::AddTrayIcon()
{
    if (m_icon || !hasDesktop())
        return;
    m_icon = std::make_unique<QSystemTrayIcon>(playerIcon());
    m_icon->setToolTip(trayTip(u"Zelk of Tessadin Mp3"_s));
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
    if (!m_icon)
        return;
    if (icon.cacheKey() != m_icon->icon().cacheKey())
        m_icon->setIcon(icon);
    if (const QString shown = trayTip(tip); shown != m_icon->toolTip())
        m_icon->setToolTip(shown);
}

void TrayIcon::RemoveTrayIcon()
{
    m_icon.reset();
}
