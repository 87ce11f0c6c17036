// The quick reader's texts by bytes, its variable-rate lengths, and what stands when decoding ends early.
#include "mp3info/quick_header.h"
#include "support/test_files.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
QString described(const QuickHeader &h)
{
    return QStringList{h.bitRate, h.channelMode, h.copyrighted, h.crc,      h.emphasis, h.frequency,
                       h.layer,   h.length,      h.mpegVersion, h.original, h.size}
        .join(u'|');
}

QByteArray xingFile(const char *frames, qsizetype at = 0)
{
    return QByteArray(at, '.') + QByteArray::fromHex("fffb9064").leftJustified(36, '\0') + "Xing" +
           QByteArray(4, '\0') + QByteArray::fromHex(frames).leftJustified(200, '\0');
}
} // namespace

class QuickHeaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsOfAFrame_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<qint64>("length");
        QTest::addColumn<QString>("expected");
        const auto add = [](const char *name, const QByteArray &bytes, qint64 length, const char *expected) {
            QTest::newRow(name) << bytes << length << QString::fromLatin1(expected);
        };
        const auto row = [add](const char *name, const char *hex, qint64 length, const char *expected) {
            add(name, QByteArray::fromHex(hex), length, expected);
        };
        constexpr const char *joint128 =
            "128Kbit| Joint Stereo| No|No| None|44100 Hz|Layer 3|0 seconds|MPEG 1.0| Yes|9000 bytes";
        constexpr const char *none = "||||||||||9000 bytes";
        row("empty", "", 0, "||||||||||0 bytes");
        row("plain", "fffb9064", 4'000'000,
            "128Kbit| Joint Stereo| No|No| None|44100 Hz|Layer 3|250 seconds|MPEG 1.0| Yes|4000000 bytes");
        row("layer 2, sum", "fffce58b", 4'000'000,
            "320Kbit| 2 Channel| Yes|Yes| CITT j. 17|48000 Hz|Layer 2|100 seconds|MPEG 1.0| No|4000000 bytes");
        row("layer 1, index 0", "ffff0fc1", 3'000'000,
            "24Kbit| Mono| No|No| 50/15 microsec|32000 Hz|Layer 1|1000 seconds|MPEG 1.0| No|3000000 bytes");
        row("MPEG-2", "fff3840e", 4'000'000,
            "64Kbit| Stereo| Yes|No| invalid|24000 Hz|Layer 3|500 seconds|MPEG 2.0| Yes|4000000 bytes");
        row("MPEG-2 layer 1, low rate", "fff67800", 9'000,
            "56Kbit| Stereo| No|Yes| None|16000 Hz|Layer 1|1 seconds|MPEG 2.0| No|9000 bytes");
        row("MPEG-2 rate 0 ends", "fff40000", 9'000, "0|||Yes||22050 Hz|Layer 2||MPEG 2.0||9000 bytes");
        row("beyond 4 GiB", "fffba000", 5'000'000'000,
            "160Kbit| Stereo| No|No| None|44100 Hz|Layer 3|250000 seconds|MPEG 1.0| No|5000000000 bytes");
        row("neither version", "fff8fff1ffe3", 9'000, none);
        row("cut after the sync", "fff2", 9'000, "0|||Yes||22050 Hz|Layer 3||MPEG 2.0||9000 bytes");
        add("variable rate", xingFile("00002a30"), 4'000'000,
            "113 Kbit (VBR)| Joint Stereo| No|No| None|44100 Hz|Layer 3|281 seconds|MPEG 1.0| Yes|4000000 bytes");
        add("variable rate, product wraps", xingFile("ff002a30"), 268'435'456,
            "-7643 Kbit (VBR)| Joint Stereo| No|No| None|44100 Hz|Layer 3|281 seconds|MPEG 1.0| Yes|268435456 bytes");
        add("57 frames end", xingFile("00000039"), 9'000, "128|||No||44100 Hz|Layer 3|0 seconds|MPEG 1.0||9000 bytes");
        add("last sync", QByteArray(4091, '.') + QByteArray::fromHex("fffb9064"), 9'000, joint128);
        add("sync beyond", QByteArray(4092, '.') + QByteArray::fromHex("fffb9064"), 9'000, none);
        add("frame count beyond", xingFile("00002a30", 4049), 9'000, joint128);
    }

    void textsOfAFrame()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const qint64, length);
        QTEST(described(quickHeader(bytes, length).header), "expected");
    }

    void secondsOutliveFilesWithout()
    {
        const TestFolder folder;
        const QByteArray frame = QByteArray::fromHex("fffb9064").leftJustified(48'000, '\0');
        QCOMPARE(QuickMp3Header(folder.makeFile(u"song.mp3"_s, frame)).length, u"3 seconds"_s);
        QCOMPARE(QuickMp3Header(folder.makeFile(u"text.mp3"_s, "text")).size, u"4 bytes"_s);
        for (const QString &path : {QString(), folder.path(u"none.mp3"_s), folder.path(), folder.path(QString())})
            QCOMPARE(QuickMp3Header(path).size, QString());
        QCOMPARE(QuickSeconds(), 3);
    }
};

QTEST_APPLESS_MAIN(QuickHeaderTest)
#include "tst_quick_header.moc"
