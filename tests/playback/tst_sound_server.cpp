// SPDX-License-Identifier: GPL-3.0-or-later
// The player on a sound server of its own, heard at the server's end.
#include "playback/engine_choice.h"
#include "support/songs.h"

#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{
constexpr int patienceMs = 20000;
constexpr int rate = 44100;

// A PulseAudio whose only device is nobody's, and a recorder of what it plays.
struct Server {
    Server()
    {
        const QString socket = folder.hostPath() + u"/socket"_s;
        qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socket));
        start();
    }
    ~Server() { end(); }

    void start()
    {
        process.start(u"pulseaudio"_s,
                      {u"-n"_s, u"--daemonize=no"_s, u"--exit-idle-time=-1"_s, u"--use-pid-file=no"_s, u"-L"_s,
                       u"module-null-sink rate=44100"_s, u"-L"_s,
                       u"module-native-protocol-unix auth-anonymous=1 socket="_s + folder.hostPath() + u"/socket"_s});
        QTRY_COMPARE_WITH_TIMEOUT(QProcess::execute(u"pactl"_s, {u"info"_s}), 0, patienceMs);
        recorder.start(u"parec"_s, {u"--raw"_s, u"--format=float32"_s, u"--channels=1"_s, u"--latency-msec=10"_s});
        QTRY_VERIFY_WITH_TIMEOUT(recorder.bytesAvailable() > 0, patienceMs);
    }

    void end()
    {
        for (QProcess *each : {&recorder, &process}) {
            each->kill();
            each->waitForFinished();
        }
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
    void initTestCase()
    {
        qunsetenv("KIV_MP3_SOUND");
        if (QStandardPaths::findExecutable(u"pulseaudio"_s).isEmpty() ||
            QStandardPaths::findExecutable(u"parec"_s).isEmpty())
            QSKIP("no PulseAudio is installed");
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
        QList<double> levels = server.levels();
        while (levels.last() == 0)
            levels.removeLast();
        levels = levels.sliced(levels.lastIndexOf(0.0) + 1);
        QVERIFY2(std::abs(levels.size() - 60) <= 2, QByteArray::number(levels.size()).constData()); // None is silent.
        const auto loud = std::count_if(levels.cbegin(), levels.cend(), [](double level) { return level > 0.2; });
        QVERIFY2(loud >= 4 && loud < 15, QByteArray::number(loud).constData());
        QVERIFY(std::abs(levels[2] / levels[levels.size() - 3] - 10) < 0.1);
    }

    void aSongOutlivesItsServer()
    {
        Server server;
        EngineChoice engine;
        engine.setFileName(longSong(server.folder));
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
