// The frame header by its bytes: every field, where decoding stops, and what is read of a file without a frame.
#include "mp3info/frame_header.h"

#include <QTest>

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

QByteArray withXing(qsizetype at, const char *frames, const char *tag = "Xing")
{
    QByteArray bytes = QByteArray::fromHex("fffb9064").leftJustified(5200, '\0');
    return bytes.replace(at, 4, tag).replace(at + 8, 4, QByteArray::fromHex(frames));
}
} // namespace

class FrameHeaderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsAreDecoded_data()
    {
        QTest::addColumn<QByteArray>("hex");
        QTest::addColumn<qint64>("length");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const char *hex, qint64 length, const char *expected) {
            QTest::newRow(name) << QByteArray(hex) << length << QString::fromLatin1(expected);
        };
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
        QTEST(described(header), "expected");
        QCOMPARE(header.fileBytes, static_cast<std::int32_t>(length % 4'294'967'296));
    }

    void xingFramesAreCounted_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("frames");
        QTest::newRow("count") << withXing(36, "00002a30") << 10'800;
        QTest::newRow("largest") << withXing(36, "7fffffff") << 2'147'483'647;
        QTest::newRow("beyond 31 bits") << withXing(36, "80000000") << 0;
        QTest::newRow("constant rate") << withXing(36, "00002a30", "Info") << 0;
        QTest::newRow("place of a mono file") << withXing(21, "00002a30") << 0;
        QTest::newRow("no frame") << withXing(35, "00002a30").replace(0, 2, "..") << 10'800;
        QTest::newRow("cut within the count") << withXing(36, "00002a30").first(47) << 10'752;
    }

    void xingFramesAreCounted()
    {
        QFETCH(const QByteArray, bytes);
        QTEST(readFrameHeader(bytes, bytes.size()).frames, "frames");
    }

    void searchEndsAfter5000Bytes()
    {
        const QByteArray frame = withXing(36, "00002a30");
        const FrameHeader last = readFrameHeader((QByteArray(4999, '\xFF') + frame).first(frameHeaderReach), 9'000);
        QCOMPARE(last.kbits, std::int16_t(128));
        QCOMPARE(last.frames, 10'800);
        QCOMPARE(readFrameHeader(QByteArray(5000, '.') + frame, 9'000).layerVersion, std::int16_t(0));
    }
};

QTEST_APPLESS_MAIN(FrameHeaderTest)
#include "tst_frame_header.moc"
