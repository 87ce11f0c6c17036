// SPDX-License-Identifier: GPL-3.0-or-later
// The player's icon in the notification area: its tip names the song now playing, a click brings the main window back.
// Which windows hide and return is the listener's business. Building the icon asks the desktop over its bus, so it is
// added after the first window is on the screen.
#pragma once

#include <QIcon>
#include <QObject>
#include <QString>

#include <memory>

class QSystemTrayIcon;

class TrayIcon : public QObject
{
    Q_OBJECT

public:
    explicit TrayIcon(QObject *parent = nullptr);
    ~TrayIcon() override;

    /// Does the desktop show tray icons now? May be false at start and true later; where it is false a hidden window
    /// could not be brought back.
    bool isTrayThere() const;

    /// Shows the icon with the player's name as its tip; where there is no tray yet it appears with the tray. Nothing
    /// happens on a display that has no desktop at all.
    void AddTrayIcon();

    /// Shows another icon and tip. A null icon becomes the player's, for the caller to hand over next time. Costs
    /// nothing while the icon is away or the tip is the same.
    void UpdateTrayIcon(QIcon &icon, const QString &tip);

    /// Takes the icon away.
    void RemoveTrayIcon();

Q_SIGNALS:
    /// The left button went down on the icon.
    void Click();

private:
    std::unique_ptr<QSystemTrayIcon> m_icon;
};
