// SPDX-License-Identifier: GPL-3.0-or-later
// What an engine promises, of libmpv alone and of the choice of both engines: what is heard is recorded and listened
// to, what happens in time is played to a silent output.
#include "base/last_error.h"
#include "playback/engine_choice.h"
#include "support/songs.h"
#include "support/table.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <cmath>
#include <cstring>
#include <memory>
#include <numbers>

using namespace Qt::StringLiterals;

namespace
{
constexpr int rate = 44100;
constexpr int patienceMs = 20000;
using Samples = QList<float>; // The left channel.

double rms(const Samples &samples)
{
    double sum = 0;
    for (const float sample : samples)
        sum += double(sample) * sample;
    return std::sqrt(sum / double(std::max<qsizetype>(samples.size(), 1)));
}

// How much of a tone there is in the samples (Goertzel): 1 for the tone alone.
double share(const Samples &samples, int hertz)
{
    const double turn = 2 * std::cos(2 * std::numbers::pi * hertz / rate);
    double last = 0, before = 0;
    for (const float sample : samples)
        before = std::exchange(last, sample + turn * last - before);
    const double power = last * last + before * before - turn * last * before;
    const double count = double(samples.size());
    return 2 * power / (count * count) / std::pow(rms(samples), 2);
}

int toneOf(const Samples &samples)
{
    for (const int hertz : {440, 880, 1320})
        if (share(samples, hertz) > 0.9)
            return hertz;
    return 0;
}

// An engine, what it tells, and what is heard of it.
struct Listening {
    enum class Output { Recorded, Silent };
    explicit Listening(Output output)
    {
        const QByteArray file = QFile::encodeName(folder.hostPath() + u"/heard"_s);
        qputenv("KIV_MP3_SOUND", output == Output::Silent ? "null" : "pcm:" + file);
    }

    static std::unique_ptr<MediaEngine> makeEngine()
    {
        QFETCH_GLOBAL(bool, isChoice);
        if (isChoice)
            return std::make_unique<EngineChoice>();
        return std::make_unique<MpvEngine>();
    }

    void start(const QString &path)
    {
        engine.setFileName(path);
        engine.play();
    }

    bool playToEnd(const QString &path)
    {
        start(path);
        return ends.wait(patienceMs);
    }

    Samples heard() const
    {
        const QByteArray bytes =
            QFile::exists(folder.hostPath() + u"/heard"_s) ? folder.bytesOf(u"heard"_s) : QByteArray();
        Samples samples(bytes.size() / 8);
        for (qsizetype i = 0; i < samples.size(); ++i)
            std::memcpy(&samples[i], bytes.constData() + i * 8, 4);
        return samples;
    }

    TestFolder folder;
    std::unique_ptr<MediaEngine> made = makeEngine();
    MediaEngine &engine = *made;
    QSignalSpy ends{&engine, &MediaEngine::endOfStream};
    QSignalSpy errors{&engine, &MediaEngine::errorOccurred};
};
} // namespace

class EnginesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        const auto row = table<bool>("isChoice");
        row("libmpv", false);
        row("choice", true);
    }

    void songsSoundInTheOrderOfTheirTurns()
    {
        Listening x(Listening::Output::Recorded);
        const QList<std::pair<QString, int>> songs{
            {u"tone-880.mp3"_s, 880}, {u"tone-440.wav"_s, 440}, {u"tone-1320.mp3"_s, 1320}, {u"tone-880.wma"_s, 880}};
        QList<qsizetype> ends = {0};
        const auto startNext = [&] {
            const QString name = songs[ends.size() - 1].first;
            x.start(x.folder.copySample(name, u"50% #1? \"%2\" "_s + name));
        };
        connect(&x.engine, &MediaEngine::endOfStream, &x.engine, [&] {
            ends += x.heard().size();
            if (ends.size() <= songs.size())
                startNext(); // At the end of one the next one may be asked for.
        });
        startNext();
        QTRY_COMPARE_WITH_TIMEOUT(x.ends.size(), songs.size(), patienceMs);
        for (qsizetype i = 0; i < songs.size(); ++i) {
            const qsizetype length = ends[i + 1] - ends[i];
            QVERIFY2(length > rate * 0.45 && length < rate * 0.65, QByteArray::number(length).constData());
            QCOMPARE(toneOf(x.heard().mid(ends[i] + rate / 10, rate / 3)), songs[i].second);
        }
        QVERIFY(x.errors.isEmpty() && !x.engine.isPlaying());
    }

    void volumeIsExactInDecibels()
    {
        double full = 0;
        for (const int volume : {0, -600, -2290, -9999, -20000, -30000}) {
            Listening x(Listening::Output::Recorded); // The volume is known before the library is loaded.
            x.engine.setVolume(volume);
            QVERIFY(x.playToEnd(x.folder.copySample(volume < -20000 ? u"tone-880.wma"_s : u"tone-440.mp3"_s)));
            const double level = rms(x.heard().mid(rate / 10, rate / 3));
            if (volume == 0)
                full = level;
            if (volume <= -10000)
                QCOMPARE(level, 0.0);
            else
                QVERIFY(std::abs(2000 * std::log10(level / full) - volume) < 5);
            QCOMPARE(x.engine.volume(), std::max(volume, -10000));
        }
    }

    void whatCannotBePlayedIsOneErrorThatNamesTheFile_data()
    {
        const auto row = table<QString, int>("song", "number");
        row("missing", u"missing.mp3"_s, 53);
        row("empty", u"empty.mp3"_s, 62);
        row("folder", u"folder.mp3\\"_s, 75);
        row("garbage", u"garbage.mp3"_s, 321);
        row("play list that names a song", u"list.mp3"_s, 321);
        row("text that opens the network", u"network.mp3"_s, 321);
        row("picture", u"picture.mp3"_s, 326);
    }

    void whatCannotBePlayedIsOneErrorThatNamesTheFile()
    {
        QFETCH(QString, song);
        QFETCH(int, number);
        Listening x(Listening::Output::Recorded);
        const QByteArray tone = QFile::encodeName(x.folder.hostPath() + u"/tone-440.mp3"_s);
        for (const QString &sample : {u"tone-440.mp3"_s, u"empty.mp3"_s, u"garbage.mp3"_s, u"picture.mp3"_s})
            x.folder.copySample(sample);
        x.folder.makeFolder(u"folder.mp3"_s);
        x.folder.makeFile(u"list.mp3"_s, "#EXTM3U\n" + tone + "\n");

        x.folder.makeFile(u"network.mp3"_s, "v=0\r\no=- 0 0 IN IP4 127.0.0.1\r\ns=x\r\nc=IN IP4 127.0.0.1\r\nt=0 0\r\n"
                                            "m=audio 5004 RTP/AVP 14\r\n");

        x.start(x.folder.path(song));
        QTRY_COMPARE_WITH_TIMEOUT(x.errors.size(), 1, patienceMs);
        QCOMPARE(lastError().number, number);
        QCOMPARE(lastError().source, u"MediaPlayer1"_s);
        const QString shown = x.folder.hostPath() + u'/' + song.chopped(song.endsWith(u'\\') ? 1 : 0);
        QVERIFY2(lastError().description.contains(shown), qPrintable(lastError().description));

        // The engine is well afterwards, and the error is not reported again.
        QVERIFY(x.playToEnd(x.folder.path(u"tone-440.mp3"_s)));
        QCOMPARE(x.errors.size(), 1);
        QVERIFY(x.heard().size() < rate);
    }

    void aSongPlaysWhileAnErrorIsShown()
    {
        Listening x(Listening::Output::Recorded);
        bool hasEnded = false;
        connect(&x.engine, &MediaEngine::errorOccurred, &x.engine, [&] {
            QTest::qWait(100); // What libmpv has said at once is not what counts.
            hasEnded = x.playToEnd(x.folder.copySample(u"tone-440.mp3"_s));
        });
        x.start(x.folder.copySample(u"text.mp3"_s));
        QVERIFY(x.errors.wait(patienceMs) && hasEnded);
    }

    void onlyTheLastOfManyRequestsSounds()
    {
        Listening x(Listening::Output::Recorded);
        const QString low = x.folder.copySample(u"tone-440.mp3"_s), high = x.folder.copySample(u"tone-1320.mp3"_s);
        x.start(low);
        x.engine.stop(); // Taken back in the same handler.
        x.start(x.folder.path(u"missing.mp3"_s));
        x.start(low);
        QVERIFY(x.playToEnd(high));
        QCOMPARE(toneOf(x.heard().mid(rate / 10, rate / 3)), 1320);
        QVERIFY(x.heard().size() < rate);
        x.start(low);
        x.engine.stop();
        QVERIFY(!x.ends.wait(300));
        x.engine.play(); // A stopped song begins again.
        QVERIFY(x.ends.wait(patienceMs));
        QVERIFY(x.errors.isEmpty());
        QCOMPARE(x.ends.size(), 2);
    }

    void pauseHoldsThePositionAndDoesNotOutliveTheSong()
    {
        Listening x(Listening::Output::Silent);
        const QString song = longSong(x.folder);
        x.engine.pause();
        x.engine.play(); // Without a song neither does anything.
        x.start(song);
        QTRY_VERIFY_WITH_TIMEOUT(x.engine.currentPosition() > 0.3, patienceMs);
        QCOMPARE(x.engine.duration(), 3.0);
        x.engine.pause();
        QVERIFY(!x.engine.isPlaying());
        const auto standsStill = [&x] {
            const double at = x.engine.currentPosition();
            QTest::qWait(200);
            return x.engine.currentPosition() == at;
        };
        QTRY_VERIFY_WITH_TIMEOUT(standsStill(), patienceMs); // It is corrected after the pause.
        const double paused = x.engine.currentPosition();
        QVERIFY(paused > 0.1 && paused < 2);
        x.engine.play();
        QTRY_VERIFY_WITH_TIMEOUT(x.engine.currentPosition() > paused + 0.3, patienceMs);

        x.engine.pause();
        x.engine.setFileName(x.folder.copySample(u"tone-440.mp3"_s));
        QCOMPARE(x.engine.currentPosition(), 0.0);
        x.engine.play();
        QVERIFY(x.ends.wait(patienceMs));
        QVERIFY(x.errors.isEmpty());
    }

    void seekGoesToThePlaceAndStaysWithinTheSong()
    {
        Listening x(Listening::Output::Silent);
        x.engine.setCurrentPosition(2); // Without a song.
        QCOMPARE(x.engine.currentPosition(), 0.0);
        x.start(longSong(x.folder));
        x.engine.pause();
        x.engine.setCurrentPosition(1.5); // Before the song is open.
        QSignalSpy states(&x.engine, &MediaEngine::stateChanged);
        QTRY_VERIFY_WITH_TIMEOUT(x.engine.duration() > 0, patienceMs);
        QVERIFY(qAbs(x.engine.currentPosition() - 1.5) < 0.001);
        x.engine.setCurrentPosition(-4);
        QCOMPARE(x.engine.currentPosition(), 0.0);
        for (const double place : {0.5, 1.0, 2.0})
            x.engine.setCurrentPosition(place);
        x.engine.play();
        QTRY_VERIFY_WITH_TIMEOUT(x.engine.currentPosition() > 2.3, patienceMs);
        QVERIFY(x.engine.currentPosition() < 3);
        x.engine.setCurrentPosition(500);
        QCOMPARE(x.engine.currentPosition(), 2.5); // Its last moment is still heard.
        QTRY_COMPARE_WITH_TIMEOUT(x.ends.size(), 1, patienceMs);
    }

    void changingTheLoudnessSkipsNothing()
    {
        Listening x(Listening::Output::Silent);
        x.start(longSong(x.folder));
        QTRY_VERIFY_WITH_TIMEOUT(x.engine.currentPosition() > 0.3, patienceMs);
        const double rest = 3 - x.engine.currentPosition();
        QElapsedTimer playing;
        playing.start();
        x.engine.setVolume(-600);
        QVERIFY(x.ends.wait(patienceMs));
        QVERIFY2(playing.elapsed() > 1000 * rest - 250, QByteArray::number(playing.elapsed()).constData());
    }

    void framesAreCountedWhereASongDoesNotTell()
    {
        Listening x(Listening::Output::Silent);
        if (!qobject_cast<EngineChoice *>(&x.engine))
            QSKIP("asked of the choice");
        x.start(x.folder.makeFile(u"a.mp3"_s, TestFolder::sampleBytes(u"vbr-bare.mp3"_s).repeated(20)));
        QTRY_COMPARE_WITH_TIMEOUT(x.engine.duration(), 20 * 13 * 1152 / double(rate), patienceMs);
    }

    void libmpvWaitsUntilTheWindowIsShown()
    {
        Listening x(Listening::Output::Recorded);
        auto *choice = qobject_cast<EngineChoice *>(&x.engine);
        if (!choice)
            QSKIP("asked of the choice");
        choice->deferUntilShown();
        QVERIFY(x.playToEnd(x.folder.copySample(u"tone-440.mp3"_s)));
        const qsizetype heard = x.heard().size();
        x.start(x.folder.copySample(u"tone-880.wma"_s));
        QVERIFY(!x.ends.wait(500));
        QCOMPARE(x.heard().size(), heard);
        choice->release();
        QVERIFY(x.ends.wait(patienceMs));
    }
};

QTEST_GUILESS_MAIN(EnginesTest)
#include "tst_engines.moc"
