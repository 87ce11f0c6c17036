// SPDX-License-Identifier: GPL-3.0-or-later
// The player's icon in the notification area: its tip names the song now playing, a click brings the main window back.
// Which windows hide and return is the listener's business. Trays come and go: there are two kinds, one that is found
// on the session bus and one of X11. Building the icon asks the desktop over its bus, so it is added after the first
// window is on the screen.
#pragma once

#include "platform/x11_windows.h"

#include <QIcon>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class QDBusServiceWatcher;
class QSystemTrayIcon;

class TrayIcon : public QObject
{
    Q_OBJECT

public:
    explicit TrayIcon(QObject *parent = nullptr);
    ~TrayIcon() override;

    /// Is the icon in a tray now? Where it is not, a hidden window could not be brought back.
    bool isTrayThere() const;

    /// Shows the icon with the player's name as its tip as soon as there is a tray. Nothing happens on a display that
    /// has no desktop at all.
    void AddTrayIcon();

    /// Shows another icon and tip. A null icon becomes the player's, for the caller to hand over next time. Costs
    /// nothing while the icon is away or the tip is the same.
    void UpdateTrayIcon(QIcon &icon, const QString &tip);

    /// Shows the player's icon as the skin of now has it.
    void renewIcon();

    /// Takes the icon away.
    void RemoveTrayIcon();

Q_SIGNALS:
    /// The left button went down on the icon.
    void Click();

    /// The tray has gone, the icon with it.
    void trayGone();

private Q_SLOTS:
    void askTheBus();

private:
    enum class Kind { OnBus, OfX11 };

    void trayMayHaveChanged();
    void makeIcon();

    QString m_tip;
    std::unique_ptr<X11Tray> m_x11Tray;
    std::unique_ptr<QDBusServiceWatcher> m_busWatcher;
    std::optional<bool> m_isOnBus; // Does the session bus know a tray? Empty until it has answered.
    std::unique_ptr<QSystemTrayIcon> m_icon;
    Kind m_kind = Kind::OnBus; // What m_icon was made for: Qt decides that once.
    bool m_wasThere = false;
};
