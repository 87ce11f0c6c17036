// SPDX-License-Identifier: GPL-3.0-or-later
// The player on the desktop's session bus: media keys, desktop widgets and command line tools ask it what plays and
// tell it what to do (the two MPRIS interfaces; the adaptors give them their form). Commands go to the transport.
// Changes are reported once, after the handler that made them; the position only when it jumps; a song's data once the
// song is heard, so that its tag is not read in the way of the sound. Without a bus nothing happens.
#pragma once

#include "playback/position_clock.h"
#include "remote/cover_files.h"
#include "remote/desktop_application.h"
#include "remote/player_facts.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QTimer>

class Player;
class SongFolder;

class RemoteControl : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    /// Songs are those that Play, Next and Previous choose from.
    RemoteControl(Player &player, const SongFolder &songs);
    ~RemoteControl() override;

    /// Appears on the session bus, where there is one. To be called when the first window is on the screen. A bus that
    /// goes away is joined again when it is back.
    void start();

    /// A player that the bus has started appears there at once, and is told the song to open; "" for none.
    QString startByBus();

    /// What there is to say just now, without the song's data; and these, for which the song is read.
    PlayerFacts facts() const;
    QVariantMap metadata();

    /// Where the song is; 0 without one.
    double positionSeconds() const;

    // The commands. Those that make no sense just now do nothing.
    void play();
    void pause();
    void playPause();
    void stop();
    void next();
    void previous();
    void jump(qint64 offsetMicroseconds);
    void setPosition(const QString &track, qint64 positionMicroseconds);
    void setVolume(double volume);
    void open(const QString &uri);

Q_SIGNALS:
    /// The main window is wanted back.
    void raiseWanted();

    /// The program is to end as by Exit.
    void quitWanted();

    /// A song (a program path) is to play, and its folder to be the music folder.
    void songWanted(const QString &path);

    /// The position is not where it would be by the passing of time.
    void jumped(qint64 positionMicroseconds);

private Q_SLOTS:
    void loseBus();

private:
    void connectHandlers();
    void joinBus();
    void notifySoon();
    void notify();
    void notifyPosition(const PlayerFacts &now);
    Playback playback() const;
    PlayerFacts factsWithSong();
    bool mayReadSong() const;

    Player &m_player;
    const SongFolder &m_songs;
    QDBusConnection m_bus{QString()}; // Connected to nothing at first.
    QString m_serviceName;            // "" while not on the bus.
    int m_joinings = 0;
    QTimer m_joinTimer; // While the bus is away.
    QTimer m_notifyTimer;
    DesktopApplication m_application;
    CoverFiles m_covers;
    QVariantMap m_song; // songMetadata() of song m_songNumber; its file is read once.
    int m_songNumber = 0;
    QVariantMap m_notified; // The properties as last reported.
    int m_notifiedSong = 0;
    PositionClock m_notifiedPosition; // Where listeners believe the song to be.
};
