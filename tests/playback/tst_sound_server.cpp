// SPDX-License-Identifier: GPL-3.0-or-later
// The player on a sound server of its own, heard at the server's end.
#include "playback/engine_choice.h"
#include "support/songs.h"
#include "support/table.h"

#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstring>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int patienceMs = 20000;
constexpr int rate = 44100;

constexpr char pulseAudio[] = "exec pulseaudio -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no "
                              "-L 'module-null-sink rate=44100 sink_name=nobody' "
                              "-L \"module-native-protocol-unix auth-anonymous=1 socket=$XDG_RUNTIME_DIR/socket\"";
// The other two end where they do not find the first one yet.
constexpr char pipeWire[] = "exec dbus-run-session sh -c 'pipewire & "
                            "for other in wireplumber pipewire-pulse; do while sleep 0.1; do $other; done & done; "
                            "until pactl load-module module-null-sink sink_name=nobody; do sleep 0.1; done; "
                            "pactl set-default-sink nobody; wait'";

// A sound server whose only device is nobody's, and a recorder of what it plays.
struct Server {
    Server()
    {
        QFETCH_GLOBAL(const QString, socket);
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.hostPath()));
        qputenv("PULSE_SERVER", QFile::encodeName(u"unix:"_s + folder.hostPath() + socket));
        process.setChildProcessModifier([] { setsid(); });
        process.setStandardErrorFile(QProcess::nullDevice());
        process.setStandardOutputFile(QProcess::nullDevice());
        start();
    }
    ~Server() { end(); }

    void start()
    {
        QFETCH_GLOBAL(const QString, command);
        process.start(u"sh"_s, {u"-c"_s, command});
        QTRY_COMPARE_WITH_TIMEOUT(answerTo({u"get-default-sink"_s}), "nobody", patienceMs);
        recorder.start(u"parec"_s, {u"--raw"_s, u"--format=float32"_s, u"--channels=1"_s, u"--latency-msec=10"_s});
        QTRY_VERIFY_WITH_TIMEOUT(recorder.bytesAvailable() > 0, patienceMs);
    }

    void end()
    {
        recorder.kill();
        recorder.waitForFinished();
        ::kill(static_cast<pid_t>(-process.processId()), SIGKILL);
        process.waitForFinished();
    }

    static QByteArray answerTo(const QStringList &question)
    {
        QProcess pactl;
        pactl.start(u"pactl"_s, question);
        pactl.waitForFinished();
        return pactl.readAllStandardOutput().trimmed();
    }

    // The loudness of each tenth of a second heard so far.
    QList<double> levels()
    {
        heard += recorder.readAllStandardOutput();
        QList<double> found;
        constexpr qsizetype size = rate / 10;
        for (qsizetype at = 0; at + size * 4 <= heard.size(); at += size * 4) {
            std::array<float, size> samples;
            std::memcpy(samples.data(), heard.constData() + at, samples.size() * 4);
            double sum = 0;
            for (const float sample : samples)
                sum += double(sample) * sample;
            found += std::sqrt(sum / size);
        }
        return found;
    }

    TestFolder folder;
    QProcess process, recorder;
    QByteArray heard;
};
} // namespace

class SoundServerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        const auto row = table<QString, QString>("command", "socket");
        row("PulseAudio", QString::fromLatin1(pulseAudio), u"/socket"_s);
        row("PipeWire", QString::fromLatin1(pipeWire), u"/pulse/native"_s);
    }

    void initTestCase()
    {
        qunsetenv("KIV_MP3_SOUND");
        for (const QString &program : {u"pulseaudio"_s, u"parec"_s, u"pipewire-pulse"_s, u"wireplumber"_s})
            if (QStandardPaths::findExecutable(program).isEmpty())
                QSKIP(qPrintable(program + u" is not installed"_s));
    }

    void songsFollowEachOtherAndLoudnessIsHeardAtOnce()
    {
        Server server;
        EngineChoice engine;
        QSignalSpy ends(&engine, &MediaEngine::endOfStream);
        const auto play = [&engine, song = longSong(server.folder)] {
            engine.setFileName(song);
            engine.play();
        };
        connect(&engine, &MediaEngine::endOfStream, &engine, [&] {
            if (ends.size() < 2)
                play();
        });
        play();
        QTRY_VERIFY_WITH_TIMEOUT(engine.currentPosition() > 0.5, patienceMs);
        engine.setVolume(-2000); // Two seconds lie ready, and become softer by 20 dB.
        QTRY_COMPARE_WITH_TIMEOUT(ends.size(), 2, patienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(server.levels().last() == 0, patienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(Server::answerTo({u"list"_s, u"short"_s, u"sink-inputs"_s}), "",
                                  patienceMs); // It left.
        QList<double> levels = server.levels();
        while (levels.last() == 0)
            levels.removeLast();
        levels = levels.sliced(levels.lastIndexOf(0.0) + 1);
        QVERIFY2(std::abs(levels.size() - 60) <= 2, QByteArray::number(levels.size()).constData()); // None is silent.
        const auto loud = std::count_if(levels.cbegin(), levels.cend(), [](double level) { return level > 0.2; });
        QVERIFY2(loud >= 4 && loud < 15, QByteArray::number(loud).constData());
        const auto median = [](QList<double> part) { // A recorder that is kept waiting loses a piece.
            std::sort(part.begin(), part.end());
            return part[part.size() / 2];
        };
        QVERIFY(std::abs(median(levels.first(loud)) / median(levels.last(20)) - 10) < 0.1);
    }

    void aSongOutlivesItsServer_data()
    {
        const auto row = table<QString>("name");
        row("played by itself", u"long.mp3"_s);
        row("played by libmpv", u"long.wma"_s);
    }

    void aSongOutlivesItsServer()
    {
        QFETCH(const QString, name);
        QFETCH_GLOBAL(const QString, socket);
        if (name.endsWith(u".wma"_s) && socket.startsWith(u"/pulse"_s))
            QSKIP("libmpv's PipeWire output may wait for ever when its server dies");
        Server server;
        EngineChoice engine;
        engine.setFileName(server.folder.makeFile(name, TestFolder::sampleBytes(u"tone-440.mp3"_s).repeated(40)));
        engine.play();
        QTRY_VERIFY_WITH_TIMEOUT(engine.currentPosition() > 0.3, patienceMs);
        engine.stop();
        QTRY_COMPARE_WITH_TIMEOUT(server.levels().last(), 0.0, patienceMs);
        engine.play(); // On the server that is there already.
        QTRY_VERIFY_WITH_TIMEOUT(engine.currentPosition() > 0.3, patienceMs);
        QVERIFY(!engine.isDeviceMissing());
        server.end();
        QTRY_VERIFY_WITH_TIMEOUT(engine.isDeviceMissing(), patienceMs);
        QVERIFY(engine.isPlaying());
        engine.pause(); // It waits for the server to come back.
        const double place = engine.currentPosition();
        server.heard.clear();
        server.start();
        engine.play();
        QTRY_VERIFY_WITH_TIMEOUT(!engine.isDeviceMissing() && engine.currentPosition() > place, patienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(!server.levels().isEmpty() && server.levels().last() > 0.2, patienceMs);
    }
};

QTEST_GUILESS_MAIN(SoundServerTest)
#include "tst_sound_server.moc"
