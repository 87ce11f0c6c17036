// SPDX-License-Identifier: GPL-3.0-or-later
// Both readers of headers by bytes: every field, variable-rate marks, where decoding stops, and what stands then.
#include "mp3info/frame_header.h"
#include "mp3info/quick_header.h"
#include "support/table.h"
#include "support/test_files.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{
QString described(const FrameHeader &h)
{
    const QString numbers = u"v%1 l%2 %3k %4hz %5s %6ch"_s.arg(h.mpegVersion)
                                .arg(h.layerVersion)
                                .arg(h.kbits)
                                .arg(h.hz)
                                .arg(h.seconds)
                                .arg(h.channels);
    const QStringList texts = {numbers, h.mode, h.emphasis, h.original, h.copyrighted, h.privateBit, h.crcs};
    return texts.join(u'|') + (h.isComplete ? u""_s : u" stopped"_s);
}

QString described(const QuickHeader &h)
{
    return QStringList{h.bitRate, h.channelMode, h.copyrighted, h.crc,      h.emphasis, h.frequency,
                       h.layer,   h.length,      h.mpegVersion, h.original, h.size}
        .join(u'|');
}

// A frame of 128 kbit/s whose variable-rate mark stands so far behind its start.
QByteArray withXing(const char *frames, qsizetype at = 36, const char *mark = "Xing")
{
    QByteArray bytes = QByteArray::fromHex("fffb9064").leftJustified(5200, '\0');
    return bytes.replace(at, 4, mark).replace(at + 8, 4, QByteArray::fromHex(frames));
}
} // namespace

class HeadersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsAreDecoded_data()
    {
        const auto row = table<QByteArray, qint64, QByteArray>("hex", "length", "expected");
        row("empty", "", 0, "v25 l0 0k 0hz 0s 2ch|Stereo|None|||| stopped");
        row("plain", "fffb9064", 4'000'000, "v1 l3 128k 44100hz 250s 2ch|Joint Stereo|None|Yes|No|No|No");
        row("flags, sum, mono", "fffa55cb", 1'000'000,
            "v1 l3 64k 48000hz 125s 1ch|Single Channel|CCITT J 17|No|Yes|Yes|Yes");
        row("free rate", "fffb0002", 4'000'000, "v1 l3 0k 44100hz 0s 2ch|Stereo|Reserved|No|No|No|No");
        row("bad rate", "fffbf000", 4'000'000, "v1 l3 0k 44100hz 0s 2ch|Stereo|None|No|No|No|No");
        row("reserved sampling", "fffb9c00", 4'000'000, "v1 l3 128k 0hz 250s 2ch|Stereo|None|No|No|No|No");
        row("product wraps", "fffb9000", 268'435'456, "v1 l3 128k 44100hz -16778s 2ch|Stereo|None|No|No|No|No");
        row("too many seconds", "fffb1000", 200'000'000, "v1 l3 32k 44100hz 0s 2ch|Stereo|None|No|No|No|No");
        row("length wraps to 0", "fffb9000", 4'294'967'296, "v1 l3 128k 44100hz 0s 2ch|Stereo|None|No|No|No|No");
        row("MPEG-2 is no frame", "fff390c4", 9'000, "v2 l3 0k 0hz 0s 2ch|Stereo|None|||| stopped");
        row("tag in front", "4944330300", 9'000, "v0 l0 0k 0hz 0s 2ch|Stereo|None|||| stopped");
        row("first bytes as layer 1", "801f91", 288'000, "v1 l1 288k 44100hz 8s 2ch|Stereo|None|No|No|Yes|No");
        row("first bytes as layer 2", "801de0", 96'000, "v1 l2 384k 44100hz 2s 2ch|Stereo|None|No|No|No|No");
        row("leading zeros shift fields", "003fe5", 9'000, "v2 l3 0k 0hz 0s 2ch|Stereo|None|||| stopped");
    }

    void fieldsAreDecoded()
    {
        QFETCH(const QByteArray, hex);
        QFETCH(const qint64, length);
        const FrameHeader header = readFrameHeader(QByteArray::fromHex(hex), length);
        QTEST(described(header).toLatin1(), "expected");
        QCOMPARE(header.fileBytes, static_cast<std::int32_t>(length % 4'294'967'296));
    }

    void xingFramesAreCounted()
    {
        for (const auto &[bytes, frames] : {
                 std::pair(withXing("00002a30"), 10'800),
                 {withXing("7fffffff"), 2'147'483'647},
                 {withXing("80000000"), 0},
                 {withXing("00002a30", 36, "Info"), 0},                  // A constant rate.
                 {withXing("00002a30", 21), 0},                          // The place of a mono file.
                 {withXing("00002a30", 35).replace(0, 2, ".."), 10'800}, // No frame.
                 {withXing("00002a30").first(47), 10'752},               // Cut within the count.
             })
            QCOMPARE(readFrameHeader(bytes, bytes.size()).frames, frames);
    }

    void searchEndsAfter5000Bytes()
    {
        const QByteArray frame = withXing("00002a30");
        const FrameHeader last = readFrameHeader((QByteArray(4999, '\xFF') + frame).first(frameHeaderReach), 9'000);
        QCOMPARE(last.kbits, std::int16_t(128));
        QCOMPARE(last.frames, 10'800);
        QCOMPARE(readFrameHeader(QByteArray(5000, '.') + frame, 9'000).layerVersion, std::int16_t(0));
    }

    void textsOfAFrame_data()
    {
        const auto add = table<QByteArray, qint64, QByteArray>("bytes", "length", "expected");
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
        add("variable rate", withXing("00002a30"), 4'000'000,
            "113 Kbit (VBR)| Joint Stereo| No|No| None|44100 Hz|Layer 3|281 seconds|MPEG 1.0| Yes|4000000 bytes");
        add("variable rate, product wraps", withXing("ff002a30"), 268'435'456,
            "-7643 Kbit (VBR)| Joint Stereo| No|No| None|44100 Hz|Layer 3|281 seconds|MPEG 1.0| Yes|268435456 bytes");
        add("57 frames end", withXing("00000039"), 9'000, "128|||No||44100 Hz|Layer 3|0 seconds|MPEG 1.0||9000 bytes");
        add("last sync", QByteArray(4091, '.') + QByteArray::fromHex("fffb9064"), 9'000, joint128);
        add("sync beyond", QByteArray(4092, '.') + QByteArray::fromHex("fffb9064"), 9'000, none);
        add("frame count beyond", QByteArray(4049, '.') + withXing("00002a30"), 9'000, joint128);
    }

    void textsOfAFrame()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const qint64, length);
        QTEST(described(quickHeader(bytes, length).header).toLatin1(), "expected");
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

    void everyBitRateIsTold()
    {
        constexpr std::array rates = {32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
        constexpr std::array lowRates = {8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
        for (int row = 0; row < int(rates.size()); ++row) {
            QByteArray frame = QByteArray::fromHex("fffb0004");
            frame[2] = static_cast<char>((row + 1) * 16);
            QCOMPARE(quickHeader(frame, 9'000).header.bitRate, QString::number(rates[row]) + u"Kbit"_s);
            QCOMPARE(readFrameHeader(frame, 9'000).kbits, std::int16_t(rates[row]));
            frame[1] = '\xf3'; // MPEG-2.
            QCOMPARE(quickHeader(frame, 9'000).header.bitRate, QString::number(lowRates[row]) + u"Kbit"_s);
        }
    }

    void aPictureInTheTagHidesNoSong()
    {
        const TestFolder folder;
        const QByteArray sound = QByteArray::fromHex("fffb9064").leftJustified(48'000, '\0');
        const QByteArray head = QByteArray::fromHex("49443304000000002f00"); // 6016 bytes follow.
        const auto songWith = [&](const QByteArray &tagHead, qsizetype tagLength) {
            return songHeader(folder.makeFile(u"song.mp3"_s, tagHead + QByteArray(tagLength, '\0') + sound));
        };
        QCOMPARE(songWith(head, 6016).length, u"3 seconds"_s);
        QCOMPARE(songWith(head, 6016).size, u"54026 bytes"_s);
        QCOMPARE(QuickMp3Header(folder.path(u"song.mp3"_s)).length, QString());
        QCOMPARE(songWith(QByteArray::fromHex("49443304001000002f00"), 6026).length, u"3 seconds"_s); // With a footer.
        QCOMPARE(songWith("ID3\x04 no tag", 6016).length, QString());
        QCOMPARE(songHeader(folder.makeFile(u"cut.mp3"_s, head)).size, u"10 bytes"_s);
    }
};

QTEST_APPLESS_MAIN(HeadersTest)
#include "tst_headers.moc"
