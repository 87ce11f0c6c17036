// SPDX-License-Identifier: GPL-3.0-or-later
// The two interfaces by which the desktop knows a media player (MPRIS 2.2), each by the names and types it prescribes.
// They keep nothing: the remote control knows and does it all.
#pragma once

#include "remote/remote_control.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QGuiApplication>
#include <QStringList>

// How the player introduces itself: as Qt would put it, but for the notes on what is never signalled.
#define NOT_SIGNALLED "<annotation name='org.freedesktop.DBus.Property.EmitsChangedSignal' value='false'/>"
#define PLAYER_INTRODUCTION                                                                                            \
    "<interface name='org.mpris.MediaPlayer2.Player'>"                                                                 \
    "<property name='PlaybackStatus' type='s' access='read'/>"                                                         \
    "<property name='Metadata' type='a{sv}' access='read'/>"                                                           \
    "<property name='Volume' type='d' access='readwrite'/>"                                                            \
    "<property name='Position' type='x' access='read'>" NOT_SIGNALLED "</property>"                                    \
    "<property name='Rate' type='d' access='readwrite'/>"                                                              \
    "<property name='MinimumRate' type='d' access='read'/>"                                                            \
    "<property name='MaximumRate' type='d' access='read'/>"                                                            \
    "<property name='CanGoNext' type='b' access='read'/>"                                                              \
    "<property name='CanGoPrevious' type='b' access='read'/>"                                                          \
    "<property name='CanPlay' type='b' access='read'/>"                                                                \
    "<property name='CanPause' type='b' access='read'/>"                                                               \
    "<property name='CanSeek' type='b' access='read'/>"                                                                \
    "<property name='CanControl' type='b' access='read'>" NOT_SIGNALLED "</property>"                                  \
    "<method name='Next'/><method name='Previous'/><method name='Pause'/><method name='PlayPause'/>"                   \
    "<method name='Stop'/><method name='Play'/>"                                                                       \
    "<method name='Seek'><arg direction='in' type='x' name='Offset'/></method>"                                        \
    "<method name='SetPosition'><arg direction='in' type='o' name='TrackId'/>"                                         \
    "<arg direction='in' type='x' name='Position'/></method>"                                                          \
    "<method name='OpenUri'><arg direction='in' type='s' name='Uri'/></method>"                                        \
    "<signal name='Seeked'><arg type='x' name='Position'/></signal>"                                                   \
    "</interface>"

/// The program: who it is, how to bring it back and to end it.
class RootAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ yes)
    Q_PROPERTY(bool CanRaise READ yes)
    Q_PROPERTY(bool HasTrackList READ no)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes)
    Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes)

public:
    explicit RootAdaptor(RemoteControl &remote) : QDBusAbstractAdaptor(&remote), m_remote(remote) {}

    bool yes() const { return true; }
    bool no() const { return false; }
    QString identity() const { return QCoreApplication::applicationName(); }
    QString desktopEntry() const { return QGuiApplication::desktopFileName(); } // Where its icon is found.
    QStringList supportedUriSchemes() const;
    QStringList supportedMimeTypes() const;

public Q_SLOTS:
    void Raise() { Q_EMIT m_remote.raiseWanted(); }
    void Quit() { Q_EMIT m_remote.quitWanted(); }

private:
    RemoteControl &m_remote;
};

/// The player: what plays, where, how loud, and the transport.
class PlayerAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_CLASSINFO("D-Bus Introspection", PLAYER_INTRODUCTION)
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(double Volume READ volume WRITE setVolume)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double Rate READ rate WRITE setRate)
    Q_PROPERTY(double MinimumRate READ rate)
    Q_PROPERTY(double MaximumRate READ rate)
    Q_PROPERTY(bool CanGoNext READ canGoNext)
    Q_PROPERTY(bool CanGoPrevious READ canGoPrevious)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ yes)
    Q_PROPERTY(bool CanSeek READ canSeek)
    Q_PROPERTY(bool CanControl READ yes)

public:
    explicit PlayerAdaptor(RemoteControl &remote);

    QString playbackStatus() const { return ::playbackStatus(m_remote.facts().playback); }
    QVariantMap metadata() const { return m_remote.metadata(); }
    double volume() const { return m_remote.facts().volume; }
    void setVolume(double volume) { m_remote.setVolume(volume); }
    qlonglong position() const { return microseconds(m_remote.positionSeconds()); }
    double rate() const { return 1; }
    void setRate(double rate);
    bool canGoNext() const { return m_remote.facts().canGoNext; }
    bool canGoPrevious() const { return m_remote.facts().canGoPrevious; }
    bool canPlay() const { return m_remote.facts().canPlay; }
    bool canSeek() const { return m_remote.facts().canSeek(); }
    bool yes() const { return true; }

public Q_SLOTS:
    void Next() { m_remote.next(); }
    void Previous() { m_remote.previous(); }
    void Pause() { m_remote.pause(); }
    void PlayPause() { m_remote.playPause(); }
    void Stop() { m_remote.stop(); }
    void Play() { m_remote.play(); }
    void Seek(qlonglong Offset) { m_remote.jump(Offset); }
    void SetPosition(const QDBusObjectPath &TrackId, qlonglong Position)
    {
        m_remote.setPosition(TrackId.path(), Position);
    }
    void OpenUri(const QString &Uri) { m_remote.open(Uri); }

Q_SIGNALS:
    void Seeked(qlonglong Position);

private:
    RemoteControl &m_remote;
};

/// Gives the remote control both interfaces, before it appears on the bus. They live as long as it does.
void addInterfaces(RemoteControl &remote);
