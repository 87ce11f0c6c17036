// SPDX-License-Identifier: GPL-3.0-or-later
// The player as a listener on the session bus sees and drives it, and the rules of what is told there.
#include "platform/drives.h"
#include "remote/adaptors.h"
#include "remote/remote_control.h"
#include "remote/song_metadata.h"
#include "support/core_stand.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>
#include <tuple>

using namespace Qt::StringLiterals;

namespace
{
const QString service = u"org.mpris.MediaPlayer2.kiv-mp3"_s;
const QString objectPath = u"/org/mpris/MediaPlayer2"_s;
const QString root = u"org.mpris.MediaPlayer2"_s;
const QString playerInterface = u"org.mpris.MediaPlayer2.Player"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;
constexpr auto farthest = std::numeric_limits<qlonglong>::max();
} // namespace

// A player with three songs, and a desktop widget that listens to it.
class Stand : public QObject, public CoreStand
{
    Q_OBJECT

public:
    Stand() : CoreStand({u"1.mp3"_s, u"2.mp3"_s, u"3.mp3"_s})
    {
        bus.connect(service, objectPath, properties, u"PropertiesChanged"_s, this, SLOT(change(QString, QVariantMap)));
        bus.connect(service, objectPath, playerInterface, u"Seeked"_s, this, SLOT(jump(qlonglong)));
        addInterfaces(remote);
        remote.start();
        songs.choose(0);
        const bool isThere = QTest::qWaitFor([this] { return bus.interface()->isServiceRegistered(service); });
        QTest::qVerify(isThere, "on the bus", "", __FILE__, __LINE__);
        takeCalls();
    }

    QDBusMessage ask(const QString &interface, const QString &method, const QVariantList &arguments = {})
    {
        QDBusMessage call = QDBusMessage::createMethodCall(service, objectPath, interface, method);
        call.setArguments(arguments);
        const QDBusPendingCallWatcher answer(bus.asyncCall(call));
        if (!QTest::qWaitFor([&] { return answer.isFinished(); }))
            return {};
        QTest::qWait(1); // What changed by it is told after the handler.
        return answer.reply();
    }

    QVariant get(const QString &property)
    {
        const QDBusMessage answer = ask(properties, u"Get"_s, {playerInterface, property});
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }

    void setVolume(double volume)
    {
        ask(properties, u"Set"_s, {playerInterface, u"Volume"_s, QVariant::fromValue(QDBusVariant(volume))});
    }

    // The engine's calls that a command leads to, without the music folder.
    QString calls(const QString &method, const QVariantList &arguments = {})
    {
        ask(playerInterface, method, arguments);
        return takeCalls();
    }
    // What was told since the last question: names of properties, and "Seeked 15".
    QString takeChanges()
    {
        get(u"Volume"_s); // Its answer comes after all that was told before.
        return std::exchange(changes, {}).join(u", "_s);
    }

    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"widget"_s);
    RemoteControl remote{player, songs};
    QStringList changes;

public Q_SLOTS:
    void change(const QString &, const QVariantMap &changed) { changes += changed.keys(); }
    void jump(qlonglong position) { changes += u"Seeked "_s + QString::number(position / 1e6); }
};

class RemoteTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSongIsToldByItsTagOrItsName()
    {
        const TestFolder folder;
        for (const auto &sample : {u"id3v1-spaces.mp3"_s, u"id3v1-nul.mp3"_s}) {
            const QVariantMap song = songMetadata(folder.copySample(sample));
            QCOMPARE(song[u"xesam:title"_s].toString(), u"Blue Café"_s);
            QCOMPARE(song[u"xesam:artist"_s].toStringList(), QStringList(u"Ärger & Söhne"_s));
            QCOMPARE(song[u"xesam:genre"_s].toStringList(), QStringList(u"Rock"_s));
        }
        const QVariantMap bare = songMetadata(folder.makeFile(u"A.B \xDCFF.mp3"_s, QByteArray(200, '\0')));
        QCOMPARE(bare.keys(), QStringList({u"xesam:title"_s, u"xesam:url"_s}));
        QCOMPARE(bare[u"xesam:title"_s].toString(), u"A.B \xFFFD"_s);
    }

    void commandsAreTheWindowsOwn()
    {
        Stand stand;
        for (const auto &[command, outcome] : {
                 std::pair(u"Next"_s, u"FileName 2.mp3, Play: Playing"_s), // The list had the first one chosen.
                 {u"Play"_s, u": Playing"_s},
                 {u"Pause"_s, u"Pause: Paused"_s},
                 {u"Pause"_s, u": Paused"_s},
                 {u"Play"_s, u"Play: Playing"_s},
                 {u"PlayPause"_s, u"Pause: Paused"_s},
                 {u"Previous"_s, u"FileName 1.mp3, Play: Playing"_s},
                 {u"PlayPause"_s, u"Play, Pause: Paused"_s}, // The transport took the new song for held.
                 {u"Stop"_s, u"Stop: Stopped"_s},
                 {u"Pause"_s, u": Stopped"_s},
                 {u"PlayPause"_s, u"FileName 1.mp3, Play: Playing"_s},
             }) {
            const QString calls = stand.calls(command);
            QCOMPARE(calls + u": "_s + stand.get(u"PlaybackStatus"_s).toString(), outcome);
        }
        stand.engine.finishSong();
        QCOMPARE(stand.get(u"PlaybackStatus"_s).toString(), u"Stopped"_s);
    }

    void seekingStaysWithinTheSong()
    {
        Stand stand;
        QCOMPARE(stand.calls(u"Seek"_s, {farthest}), QString());
        stand.calls(u"Next"_s);
        QCOMPARE(stand.calls(u"Seek"_s, {farthest}), QString()); // Its length is not known.
        stand.engine.setSong(0, 100);
        const auto track = qdbus_cast<QVariantMap>(stand.get(u"Metadata"_s))[u"mpris:trackid"_s];
        const QVariant other = QVariant::fromValue(QDBusObjectPath(u"/other"_s));
        stand.takeChanges();
        QCOMPARE(stand.calls(u"Seek"_s, {qlonglong(15e6)}), u"Position 15"_s);
        QCOMPARE(stand.calls(u"Seek"_s, {-farthest}), u"Position 0"_s);
        QCOMPARE(stand.calls(u"SetPosition"_s, {track, qlonglong(42e6)}), u"Position 42"_s);
        QCOMPARE(stand.get(u"Position"_s).toLongLong(), 42'000'000);
        for (const qlonglong nowhere : {-1LL, 100'000'001LL, farthest})
            QCOMPARE(stand.calls(u"SetPosition"_s, {track, nowhere}), QString());
        QCOMPARE(stand.calls(u"SetPosition"_s, {other, qlonglong(1)}), QString());
        stand.engine.setSong(42.1, 100); // No more than time passing.
        QCOMPARE(stand.takeChanges(), u"Seeked 15, Seeked 0, Seeked 42"_s);
        QCOMPARE(stand.calls(u"Seek"_s, {farthest}), u"FileName 3.mp3, Play"_s);
        QCOMPARE(stand.takeChanges(), u"Metadata"_s); // That a new song begins at its start goes without saying,
        stand.engine.setSong(30, 100);
        QCOMPARE(stand.takeChanges(), u"Seeked 30"_s);                             // and that it does not is told.
        QCOMPARE(stand.calls(u"SetPosition"_s, {track, qlonglong(1)}), QString()); // That song is over.
    }

    void onlyWhatChangedIsTold()
    {
        Stand stand;
        stand.takeChanges();
        stand.setVolume(0.5);
        QCOMPARE(stand.player.volume(), -1145);
        QCOMPARE(stand.takeChanges(), u"Volume"_s);
        stand.setVolume(0.5);
        stand.setVolume(std::nan(""));
        QCOMPARE(stand.takeChanges(), QString());
        for (const auto &[volume, value] : {std::pair(-HUGE_VAL, -2290), {HUGE_VAL, 0}}) {
            stand.setVolume(volume);
            QCOMPARE(stand.player.volume(), value);
        }
        stand.takeChanges();
        stand.calls(u"Next"_s);
        QCOMPARE(stand.takeChanges(), u"CanSeek, Metadata, PlaybackStatus"_s);
        stand.calls(u"Pause"_s);
        QCOMPARE(stand.takeChanges(), u"PlaybackStatus"_s);
    }

    void commandsForTheWindowsLeaveAsSignals()
    {
        Stand stand;
        const QSignalSpy songs(&stand.remote, &RemoteControl::songWanted);
        const QSignalSpy raises(&stand.remote, &RemoteControl::raiseWanted);
        const QSignalSpy quits(&stand.remote, &RemoteControl::quitWanted);
        const QString song = stand.folder.copySample(u"text.mp3"_s, u"50% #1.mp3"_s);
        for (const QString &refused : {fileUri(stand.folder.path()), fileUri(song + u'x'), u"http://a/b.mp3"_s})
            QCOMPARE(stand.ask(playerInterface, u"OpenUri"_s, {refused}).type(), QDBusMessage::ErrorMessage);
        stand.ask(playerInterface, u"OpenUri"_s, {fileUri(song)});
        QCOMPARE(songs, QList<QVariantList>{{song}});
        stand.ask(root, u"Raise"_s);
        QVERIFY(raises.size() == 1 && quits.isEmpty());
        QCOMPARE(stand.ask(root, u"Quit"_s).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(quits.size(), 1);
    }
};

QTEST_GUILESS_MAIN(RemoteTest)
#include "tst_remote.moc"
