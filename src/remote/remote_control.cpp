// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/remote_control.h"

#include "playback/player.h"
#include "remote/song_metadata.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>

#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
constexpr int joinAgainMs = 5000;
constexpr double jumpSeconds = 0.5; // Listeners that are further off are corrected.
const QString connectionName = u"kiv-mp3"_s;
const QString objectPath = u"/org/mpris/MediaPlayer2"_s;
const QString serviceName = u"org.mpris.MediaPlayer2.kiv-mp3"_s;
const QString playerInterface = u"org.mpris.MediaPlayer2.Player"_s;
const QString metadataProperty = u"Metadata"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

// The player's name on the bus, with the process's number where another one has it already; "" when there is none.
QString takeServiceName(QDBusConnection bus)
{
    for (const QString &name :
         {serviceName, serviceName + u".instance"_s + QString::number(QCoreApplication::applicationPid())})
        if (bus.registerService(name))
            return name;
    return {};
}
} // namespace

RemoteControl::RemoteControl(Player &player, const SongFolder &songs) : m_player(player), m_songs(songs)
{
    m_notifyTimer.setSingleShot(true);
    connect(&m_notifyTimer, &QTimer::timeout, this, &RemoteControl::notify);
    connect(&m_joinTimer, &QTimer::timeout, this, &RemoteControl::joinBus);
    connect(&m_application, &DesktopApplication::songWanted, this, &RemoteControl::songWanted);
    connect(&m_application, &DesktopApplication::raiseWanted, this, &RemoteControl::raiseWanted);
}

RemoteControl::~RemoteControl()
{
    if (!m_serviceName.isEmpty())
        for (const QString &name : {m_serviceName, DesktopApplication::id()})
            m_bus.unregisterService(name);
}

void RemoteControl::start()
{
    if (m_joinings > 0)
        return;
    CoverFiles::tidy();
    joinBus();
    if (!m_serviceName.isEmpty())
        connectHandlers();
}

QString RemoteControl::startByBus()
{
    start();
    return m_serviceName.isEmpty() ? QString() : m_application.waitForFirstWish();
}

// Qt's own connection is never made anew; a later one is the player's own.
void RemoteControl::joinBus()
{
    const bool isFirst = m_joinings++ == 0;
    QDBusConnection::disconnectFromBus(connectionName);
    m_bus = isFirst ? QDBusConnection::sessionBus()
                    : QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!m_bus.isConnected() || !m_bus.registerObject(objectPath, this))
        return;
    m_joinTimer.stop();
    notify(); // Before the name is taken: whoever finds it asks for everything.
    m_serviceName = takeServiceName(m_bus);
    m_bus.registerObject(DesktopApplication::objectPath(), &m_application, QDBusConnection::ExportScriptableSlots);
    m_bus.registerService(DesktopApplication::id());
    m_bus.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, this,
                  SLOT(loseBus()));
}

void RemoteControl::loseBus()
{
    m_serviceName.clear();
    m_joinTimer.start(joinAgainMs);
}

void RemoteControl::connectHandlers()
{
    connect(&m_player, &Player::stateChanged, this, &RemoteControl::notifySoon);
    connect(&m_player, &Player::songChanged, this, &RemoteControl::notifySoon);
    connect(&m_player, &Player::volumeChanged, this, &RemoteControl::notifySoon);
    connect(&m_songs, &SongFolder::changed, this, &RemoteControl::notifySoon);
}

void RemoteControl::notifySoon()
{
    if (!m_notifyTimer.isActive())
        m_notifyTimer.start(0);
}

// Reports what has changed since the last time, if anything has. A song that is being opened is reported later.
void RemoteControl::notify()
{
    const bool isSongTold = mayReadSong();
    const PlayerFacts now = isSongTold ? factsWithSong() : facts();
    QVariantMap properties = playerProperties(now);
    if (!isSongTold)
        properties[metadataProperty] = m_notified.value(metadataProperty);
    const QVariantMap changed = changedProperties(std::exchange(m_notified, properties), properties);
    if (!changed.isEmpty()) {
        QDBusMessage message = QDBusMessage::createSignal(objectPath, propertiesInterface, u"PropertiesChanged"_s);
        m_bus.send(message << playerInterface << changed << QStringList());
    }
    if (isSongTold)
        notifyPosition(now);
}

void RemoteControl::notifyPosition(const PlayerFacts &now)
{
    if (std::exchange(m_notifiedSong, now.songNumber) != now.songNumber)
        m_notifiedPosition.set(0); // A song that is new to the listeners begins at its start.
    const double position = positionSeconds();
    if (now.playback != Playback::Stopped && std::abs(m_notifiedPosition.seconds() - position) > jumpSeconds) {
        m_notifiedPosition.set(position);
        Q_EMIT jumped(microseconds(position));
    }
    m_notifiedPosition.setRunning(now.playback == Playback::Playing);
}

Playback RemoteControl::playback() const
{
    if (m_player.playingPath().isEmpty())
        return Playback::Stopped;
    return m_player.isPaused() ? Playback::Paused : Playback::Playing;
}

// The song is heard or paused, or there is none; or it has been read already.
bool RemoteControl::mayReadSong() const
{
    return playback() != Playback::Playing || m_player.isMoving() || m_songNumber == m_player.openedSongs();
}

PlayerFacts RemoteControl::facts() const
{
    PlayerFacts now;
    now.playback = playback();
    now.songNumber = m_player.openedSongs();
    now.volume = volumeOf(m_player.volume(), Player::quietest);
    const bool hasSong = now.playback != Playback::Stopped;
    const bool isOneChosen = m_songs.chosenRow() >= 0;
    now.canPlay = hasSong || isOneChosen;
    now.canGoNext = m_songs.count() > 0;
    now.canGoPrevious = isOneChosen;
    if (hasSong)
        now.lengthSeconds = m_player.lengthSeconds();
    return now;
}

PlayerFacts RemoteControl::factsWithSong()
{
    PlayerFacts now = facts();
    if (now.playback == Playback::Stopped)
        return now;
    if (std::exchange(m_songNumber, now.songNumber) != now.songNumber)
        m_song = songMetadata(m_player.playingPath(), m_covers);
    now.song = m_song;
    return now;
}

QVariantMap RemoteControl::metadata()
{
    return ::metadata(factsWithSong());
}

double RemoteControl::positionSeconds() const
{
    return playback() == Playback::Stopped ? 0 : m_player.positionSeconds();
}

void RemoteControl::play()
{
    switch (playback()) {
    case Playback::Stopped:
        return m_player.playChosen();
    case Playback::Paused:
        return m_player.pauseOrResume();
    case Playback::Playing:
        return;
    }
}

// The first call may only end a pause that was left over from the song before; then a second one pauses.
void RemoteControl::pause()
{
    for (int turns = 0; turns < 2 && playback() == Playback::Playing; ++turns)
        m_player.pauseOrResume();
}

void RemoteControl::playPause()
{
    if (playback() == Playback::Playing)
        pause();
    else
        play();
}

void RemoteControl::stop()
{
    m_player.stop();
}

void RemoteControl::next()
{
    m_player.next();
}

void RemoteControl::previous()
{
    m_player.previous();
}

// Seeks from where the song is; beyond its end the next song follows.
void RemoteControl::jump(qint64 offsetMicroseconds)
{
    const double length = facts().lengthSeconds;
    if (length <= 0)
        return;
    if (const auto target = jumpTarget(positionSeconds(), offsetMicroseconds, length))
        m_player.seek(*target);
    else
        next();
}

// Seeks within the song that was meant; a late request for another song does nothing.
void RemoteControl::setPosition(const QString &track, qint64 positionMicroseconds)
{
    const PlayerFacts now = facts();
    if (track != trackPath(now.songNumber) || positionMicroseconds < 0)
        return;
    if (const auto target = jumpTarget(0, positionMicroseconds, now.lengthSeconds))
        m_player.seek(*target);
}

void RemoteControl::setVolume(double volume)
{
    if (const std::optional<int> value = attenuationOf(volume, Player::quietest))
        m_player.setVolume(*value);
}

void RemoteControl::open(const QString &uri)
{
    if (const QString path = fileOfUri(uri); !path.isEmpty())
        Q_EMIT songWanted(path);
    else if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, u"There is no such file: "_s + uri);
}
