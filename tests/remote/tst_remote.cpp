// SPDX-License-Identifier: GPL-3.0-or-later
// The player as a listener on the session bus sees and drives it, and the rules of what is told there.
#include "platform/ansi_text.h"
#include "platform/desktop.h"
#include "platform/drives.h"
#include "remote/adaptors.h"
#include "remote/remote_control.h"
#include "remote/song_metadata.h"
#include "support/core_stand.h"
#include "support/table.h"

#include <QBuffer>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QImage>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QStringEncoder>
#include <QUrl>

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

// A zero after each 255, as tags have it that are not to look like sound.
QByteArray stuffed(QByteArray bytes)
{
    return bytes.replace('\xFF', QByteArray("\xFF\0", 2));
}

QByteArray number(qsizetype value, int bytes, int bits = 8)
{
    QByteArray text;
    for (int place = bytes - 1; place >= 0; --place)
        text += static_cast<char>(value >> (bits * place) & ((1 << bits) - 1));
    return text;
}

QByteArray frame(int version, const QByteArray &name, const QByteArray &body, char flags = 0)
{
    if (version == 2)
        return name + number(body.size(), 3) + body;
    return name + number(body.size(), 4, version == 4 ? 7 : 8) + '\0' + flags + body;
}

QByteArray tagged(int version, const QByteArray &frames, int flags = 0)
{
    return "ID3" + number(version, 1) + '\0' + static_cast<char>(flags) + number(frames.size(), 4, 7) + frames;
}

QByteArray text(char encoding, const QString &said)
{
    const auto units = [&said](QStringConverter::Encoding as) { return QByteArray(QStringEncoder(as)(said)); };
    switch (encoding) {
    case 0:
        return '\0' + toAnsi(said);
    case 1:
        return "\1\xFF\xFE" + units(QStringConverter::Utf16LE);
    case 2:
        return '\2' + units(QStringConverter::Utf16BE);
    default:
        return '\3' + said.toUtf8();
    }
}

// A small picture; what follows its end looks like sound.
QByteArray picture()
{
    QBuffer file;
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.save(&file, "PNG");
    return file.data() + QByteArray("\xFF\xE0\xFF\0\xFF", 5);
}
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

    void set(const QString &property, double value)
    {
        ask(properties, u"Set"_s, {playerInterface, property, QVariant::fromValue(QDBusVariant(value))});
    }
    void setVolume(double volume) { set(u"Volume"_s, volume); }
    QVariantMap metadata() { return qdbus_cast<QVariantMap>(get(u"Metadata"_s)); }

    // The engine's calls that a command leads to, without the music folder.
    QString calls(const QString &method, const QVariantList &arguments = {})
    {
        ask(playerInterface, method, arguments);
        return takeCalls();
    }
    // What was told since the last question: names of properties, and "Seeked 15".
    QString takeChanges()
    {
        get(u"Volume"_s); // What is to be told is sent once the event loop is idle,
        get(u"Volume"_s); // and comes before this answer.
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
        CoverFiles covers;
        for (const auto &sample : {u"id3v1-spaces.mp3"_s, u"id3v1-nul.mp3"_s}) {
            const QVariantMap song = songMetadata(folder.copySample(sample), covers);
            QCOMPARE(song[u"xesam:title"_s].toString(), u"Blue Café"_s);
            QCOMPARE(song[u"xesam:album"_s].toString(), u"Album"_s);
            QCOMPARE(song[u"xesam:artist"_s].toStringList(), QStringList(u"Ärger & Söhne"_s));
            QCOMPARE(song[u"xesam:genre"_s].toStringList(), QStringList(u"Rock"_s));
        }
        const QVariantMap bare = songMetadata(folder.makeFile(u"A.B \xDCFF.mp3"_s, QByteArray(200, '\0')), covers);
        QCOMPARE(bare.keys(), QStringList({u"xesam:title"_s, u"xesam:url"_s}));
        QCOMPARE(bare[u"xesam:title"_s].toString(), u"A.B \xFFFD"_s);
        QCOMPARE(bare[u"xesam:url"_s].toString(), u"file://"_s + folder.hostPath() + u"/A.B%20%FF.mp3"_s);
    }

    void tagsOfEveryVersionAreRead_data()
    {
        const auto row = table<QByteArray, QString>("tag", "title");
        const QString night = u"Ночь ÿ"_s;
        const QByteArray jpg = QByteArray("\0JPG\3d\0", 7) + picture();
        const QByteArray png = QByteArray("\0image/png\0\3d\0", 14) + picture();
        const QByteArray wide = QByteArray("\1image/png\0\3\xFF\xFE", 14) + QByteArray("d\0\0\0", 4) + picture();
        const QByteArray front2 = frame(2, "PIC", jpg);
        const QByteArray back2 = frame(2, "PIC", QByteArray(jpg).replace(4, 1, "\4") + 'x');
        const QByteArray front3 = frame(3, "APIC", png);
        const QByteArray back4 = frame(4, "APIC", QByteArray(png).replace(11, 1, "\4") + 'x');
        row("2.2", tagged(2, back2 + frame(2, "TT2", text(0, u"“É”"_s)) + front2 + back2), u"“É”"_s);
        row("2.2, stuffed", tagged(2, stuffed(frame(2, "TT2", text(1, night)) + front2), 0x80), night);
        row("2.3", tagged(3, front3 + frame(3, "TIT2", text(1, night))), night);
        row("2.3, stuffed, extended",
            tagged(3, stuffed(number(6, 4) + number(0, 6) + frame(3, "TIT2", text(1, night)) + frame(3, "APIC", wide)),
                   0xC0),
            night);
        row("2.4, extended",
            tagged(4,
                   number(6, 4) + QByteArray("\1\0", 2) + frame(4, "TIT2", text(3, night)) + back4 +
                       frame(4, "APIC", png),
                   0x40),
            night);
        row("2.4, stuffed",
            tagged(4, frame(4, "TIT2", stuffed(text(2, night)), 2) + frame(4, "APIC", stuffed(wide), 2), 0x80), night);
        row("cut off",
            tagged(3, frame(3, "TIT2", text(1, night)) + front3 + frame(3, "APIC", png + QByteArray(1 << 20, 'x')))
                .chopped(1 << 20),
            night);
    }

    void tagsOfEveryVersionAreRead()
    {
        QFETCH(QByteArray, tag);
        const TestFolder folder;
        CoverFiles covers;
        const QByteArray sound = TestFolder::sampleBytes(u"id3v1-nul.mp3"_s);
        const QVariantMap song = songMetadata(folder.makeFile(u"a.mp3"_s, tag + sound), covers);
        QTEST(song[u"xesam:title"_s].toString(), "title");
        QFile cover(QUrl(song[u"mpris:artUrl"_s].toString()).toLocalFile());
        QVERIFY(cover.open(QIODevice::ReadOnly));
        QCOMPARE(cover.readAll(), picture());
    }

    void fieldsOfATagAreTold()
    {
        const TestFolder folder;
        CoverFiles covers;
        const QByteArray frames = frame(4, "TPE1", text(3, QStringList({u"A"_s, u"B"_s}).join(QChar(u'\0')))) +
                                  frame(4, "TPE2", text(0, u"C"_s)) + frame(4, "TRCK", text(0, u"7/12"_s)) +
                                  frame(4, "TCON", text(0, u"(17)(CR)((Own"_s)) + frame(4, "TYER", text(0, u"1999"_s)) +
                                  frame(4, "TDAT", text(0, u"0612"_s));
        const QByteArray sound = TestFolder::sampleBytes(u"id3v1-nul.mp3"_s).chopped(1) + '\x11';
        const QVariantMap song = songMetadata(folder.makeFile(u"a.mp3"_s, tagged(4, frames) + sound), covers);
        QCOMPARE(song[u"xesam:title"_s].toString(), u"Blue Café"_s); // By the older tag.
        QCOMPARE(song[u"xesam:artist"_s].toStringList(), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(song[u"xesam:albumArtist"_s].toStringList(), QStringList(u"C"_s));
        QCOMPARE(song[u"xesam:trackNumber"_s].toInt(), 7);
        QCOMPARE(song[u"xesam:genre"_s].toStringList(), QStringList({u"Rock"_s, u"Cover"_s, u"(Own"_s}));
        QCOMPARE(song[u"xesam:contentCreated"_s].toString(), u"1999-12-06"_s);
    }

    void coversComeAndGo()
    {
        const TestFolder folder;
        const QDir cache(cacheFolder());
        const auto song = [&](const QByteArray &art) {
            const QByteArray tag = tagged(3, frame(3, "APIC", QByteArray("\0\0\3\0", 4) + art));
            return folder.makeFile(u"a.mp3"_s, tag);
        };
        const auto uri = [](const QString &path, CoverFiles &covers) {
            return songMetadata(path, covers)[u"mpris:artUrl"_s].toString();
        };
        {
            CoverFiles covers;
            for (int i = 0; i < 9; ++i)
                QVERIFY(QFile::exists(QUrl(uri(song(picture() + QByteArray(i % 6, 'x')), covers)).toLocalFile()));
            QCOMPARE(cache.entryList(QDir::Files).size(), 4);
            QCOMPARE(uri(song("no picture"), covers), QString());
            const QString cover = folder.makeFile(u"folder.jpg"_s);
            QCOMPARE(uri(song("no picture"), covers), fileUri(cover));
            QVERIFY(uri(song(picture()), covers) != fileUri(cover));
        }
        QCOMPARE(cache.entryList(QDir::Files), QStringList());
        QVERIFY(QFile(cache.filePath(u"cover-of-a-killed.png"_s)).open(QIODevice::WriteOnly));
        const Stand stand;
        QCOMPARE(cache.entryList(QDir::Files), QStringList());
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
                 {u"PlayPause"_s, u"Play, Pause: Paused"_s}, // The transport took the new song for paused.
                 {u"Stop"_s, u"Stop: Stopped"_s},
                 {u"Pause"_s, u": Stopped"_s},
                 {u"PlayPause"_s, u"FileName 1.mp3, Play: Playing"_s},
             }) {
            const QString calls = stand.calls(command);
            QCOMPARE(calls + u": "_s + stand.get(u"PlaybackStatus"_s).toString(), outcome);
        }
        stand.set(u"Rate"_s, 1);
        QCOMPARE(stand.takeCalls(), u""_s);
        stand.set(u"Rate"_s, 0);
        QCOMPARE(stand.takeCalls(), u"Play, Pause"_s);
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
        const QVariant track = stand.metadata()[u"mpris:trackid"_s];
        QCOMPARE(stand.metadata()[u"mpris:length"_s].toLongLong(), 100'000'000);
        const QVariant other = QVariant::fromValue(QDBusObjectPath(u"/other"_s));
        stand.calls(u"Pause"_s); // However long the questions take, the song stands.
        stand.takeChanges();
        QCOMPARE(stand.calls(u"Seek"_s, {qlonglong(15e6)}), u"Position 15"_s);
        QCOMPARE(stand.calls(u"Seek"_s, {-farthest}), u"Position 0"_s);
        QCOMPARE(stand.calls(u"SetPosition"_s, {track, qlonglong(42e6)}), u"Position 42"_s);
        QCOMPARE(stand.get(u"Position"_s).toLongLong(), 42'000'000);
        QCOMPARE(stand.calls(u"Seek"_s, {qlonglong(-2e6)}), u"Position 40"_s);
        QCOMPARE(stand.calls(u"Seek"_s, {qlonglong(2e6)}), u"Position 42"_s);
        for (const qlonglong nowhere : {-1LL, 100'000'001LL, farthest})
            QCOMPARE(stand.calls(u"SetPosition"_s, {track, nowhere}), QString());
        QCOMPARE(stand.calls(u"SetPosition"_s, {other, qlonglong(1)}), QString());
        stand.engine.setSong(42.1, 100); // No more than time passing.
        QCOMPARE(stand.takeChanges(), u"Seeked 15, Seeked 0, Seeked 42, Seeked 40, Seeked 42"_s);
        QCOMPARE(stand.calls(u"Seek"_s, {farthest}), u"FileName 3.mp3, Play"_s);
        QCOMPARE(stand.takeChanges(), u"Metadata, PlaybackStatus"_s); // That a song begins at its start says itself,
        stand.engine.setSong(30, 100);
        QCOMPARE(stand.takeChanges(), u"Seeked 30"_s);                             // and that it does not is told.
        QCOMPARE(stand.calls(u"SetPosition"_s, {track, qlonglong(1)}), QString()); // That song is over.
    }

    void onlyWhatChangedIsTold()
    {
        Stand stand;
        stand.takeChanges();
        stand.setVolume(0.2);
        QCOMPARE(stand.player.volume(), -1832);
        QCOMPARE(stand.get(u"Volume"_s).toDouble(), 0.2);
        QCOMPARE(stand.takeChanges(), u"Volume"_s);
        stand.setVolume(0.2);
        stand.setVolume(std::nan(""));
        QCOMPARE(stand.takeChanges(), QString());
        for (const auto &[volume, value] : {std::pair(-HUGE_VAL, -2290), {HUGE_VAL, 0}}) {
            stand.setVolume(volume);
            QCOMPARE(stand.player.volume(), value);
        }
        stand.takeChanges();
        stand.calls(u"Next"_s);
        QCOMPARE(stand.takeChanges(), u"Metadata, PlaybackStatus"_s);
        stand.engine.setSong(0, 100);
        QCOMPARE(stand.takeChanges(), u"CanSeek, Metadata"_s);
        stand.calls(u"Pause"_s);
        QCOMPARE(stand.takeChanges(), u"PlaybackStatus"_s);
    }

    // What is written by hand is what the interface has.
    void theIntroductionIsTrue()
    {
        Stand stand;
        const QMetaObject &made = PlayerAdaptor::staticMetaObject;
        const QString xml =
            stand.ask(u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s).arguments().value(0).toString();
        QStringList told;
        for (const auto &part : QStringView(xml).split(u"name='"_s).sliced(1))
            told += part.left(part.indexOf(u'\'')).toString();
        for (int i = made.propertyOffset(); i < made.propertyCount(); ++i) {
            const QMetaProperty property = made.property(i);
            const QString line = u"<property name='%1' type='%2' access='%3'"_s.arg(
                QLatin1StringView(property.name()),
                QLatin1StringView(QDBusMetaType::typeToSignature(property.metaType())),
                property.isWritable() ? u"readwrite"_s : u"read"_s);
            QVERIFY2(xml.contains(line), qPrintable(line));
        }
        for (int i = made.methodOffset(); i < made.methodCount(); ++i)
            QVERIFY2(told.contains(QString::fromLatin1(made.method(i).name())), made.method(i).name());
        QVERIFY(xml.contains(
            u"'Position' type='x' access='read'><annotation name='org.freedesktop.DBus.Property.EmitsCh"_s));
    }

    void whatCanBeDoneIsTold()
    {
        Stand stand;
        const auto told = [&stand] {
            return stand.get(u"CanPlay"_s).toBool() && stand.get(u"CanGoNext"_s).toBool() &&
                   !stand.get(u"CanGoPrevious"_s).toBool();
        };
        stand.songs.names.resize(1);
        stand.songs.choose(-1);
        QVERIFY(!told());
        stand.player.open(u"z:\\else.mp3"_s); // A song that is not in the list is paused and goes on as any other.
        QVERIFY(told());
        stand.takeCalls();
    }

    void aSecondPlayerHasANameOfItsOwn()
    {
        QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"first"_s);
        QVERIFY(bus.registerService(service));
        CoreStand core;
        RemoteControl second(core.player, core.songs);
        second.start();
        const QString number = QString::number(QCoreApplication::applicationPid());
        QVERIFY(bus.interface()->isServiceRegistered(service + u".instance"_s + number));
        QVERIFY(bus.unregisterService(service));
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
        QDBusMessage open = QDBusMessage::createMethodCall(DesktopApplication::id(), DesktopApplication::objectPath(),
                                                           u"org.freedesktop.Application"_s, u"Open"_s);
        open << QStringList({fileUri(song + u'x'), fileUri(song)}) << QVariantMap();
        stand.bus.asyncCall(open);
        QTRY_COMPARE(songs.size(), 2); // The first that is there.
        QCOMPARE(raises.size(), 1);
        stand.ask(root, u"Raise"_s);
        QVERIFY(raises.size() == 2 && quits.isEmpty());
        QCOMPARE(stand.ask(root, u"Quit"_s).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(quits.size(), 1);
    }
};

QTEST_GUILESS_MAIN(RemoteTest)
#include "tst_remote.moc"
