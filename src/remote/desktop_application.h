// SPDX-License-Identifier: GPL-3.0-or-later
// The player as the desktop starts it and hands it files: the interface org.freedesktop.Application, under the name of
// the desktop file. The session bus starts a player where none runs.
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

class DesktopApplication : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// The name on the bus, of the desktop file and of its windows.
    static QString id() { return QStringLiteral("org.kivmp3.Player"); }
    static QString objectPath() { return QStringLiteral("/org/kivmp3/Player"); }

    /// A player that the bus has started is told next what for: the song to open (a program path), "" for none. Waits
    /// for that, not for long. The signals are for what comes later.
    QString waitForFirstWish();

public Q_SLOTS: // The interface.
    Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
    Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);
    Q_SCRIPTABLE void ActivateAction(const QString &name, const QVariantList &parameter,
                                     const QVariantMap &platformData);

Q_SIGNALS:
    /// The main window is wanted in front.
    void raiseWanted();

    /// A song (a program path) is to play.
    void songWanted(const QString &path);

    void firstWishTold();

private:
    void take(const QString &song, const QVariantMap &platformData);

    bool m_isWaiting = false;
    QString m_firstWish;
};

/// The program path of a file's address, or path; "" for what is no file of this machine.
QString fileOfUri(const QString &uri);
