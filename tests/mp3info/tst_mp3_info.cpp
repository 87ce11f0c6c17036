// SPDX-License-Identifier: GPL-3.0-or-later
// Mp3Info on real files: what encoders write, tags read and written in place, names that are no files.
#include "mp3info/mp3_info.h"
#include "mp3info/quick_header.h"
#include "platform/drives.h"
#include "support/table.h"
#include "support/test_files.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
// A frame of 128 kbit/s, then bytes up to that length.
QByteArray song(qsizetype length)
{
    return QByteArray::fromHex("fffb9064").leftJustified(length, '.');
}

QByteArray block(const QByteArray &marker, const QByteArray &title, char padding, char genre)
{
    return marker + title.leftJustified(124, padding) + genre;
}

// As much of a combo box as the genres need.
struct Combo {
    QStringList items = {u"old"_s};
    int current = -1;
    void clear() { items.clear(); }
    void addItem(const QString &item) { items += item; }
    void setCurrentIndex(int index) { current = index; }
};
} // namespace

class Mp3InfoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void encodersFilesAreRead_data()
    {
        const auto row = table<QByteArray, QByteArray>("component", "quick"); // What each reader says of a sample.
        row("cbr-32-mono", "1 3 32 44100 Single Channel No 0", "32Kbit Mono 44100 Hz Layer 3 MPEG 1.0 No");
        row("cbr-128-crc", "1 3 128 44100 Joint Stereo Yes 0", "128Kbit Joint Stereo 44100 Hz Layer 3 MPEG 1.0 Yes");
        row("vbr-xing", "1 3 128 44100 Joint Stereo No 13", "128 44100 Hz Layer 3 MPEG 1.0 No");
        row("vbr-xing-mono", "1 3 128 44100 Single Channel No 0", "128Kbit Mono 44100 Hz Layer 3 MPEG 1.0 No");
        row("vbr-bare", "1 3 256 44100 Joint Stereo No 0", "256Kbit Joint Stereo 44100 Hz Layer 3 MPEG 1.0 No");
        row("mpeg2-silence", "2 3 0 0 Stereo  0", "64Kbit Joint Stereo 22050 Hz Layer 3 MPEG 2.0 No");
        // The quick reader takes the byte order mark of a UTF-16 text in a tag in front for a frame.
        row("id3v2-2048", "1 3 128 44100 Joint Stereo No 0", "64Kbit Stereo 48000 Hz Layer 1 MPEG 1.0 Yes");
        row("id3v2-6144", "0 0 0 0 Stereo  0", "64Kbit Stereo 48000 Hz Layer 1 MPEG 1.0 Yes");
        row("garbage", "2 0 0 0 Stereo  0", "    ");
    }

    void encodersFilesAreRead()
    {
        Mp3Info info;
        const QString path = m_folder.copySample(QString::fromLatin1(QTest::currentDataTag()) + u".mp3"_s);
        info.setFileName(path);
        QTEST(u"%1 %2 %3 %4 %5 %6 %7"_s.arg(info.MpegVersion())
                  .arg(info.LayerVersion())
                  .arg(info.kbits())
                  .arg(info.Hz())
                  .arg(info.Mode(), info.CrCs())
                  .arg(info.Frames())
                  .toLatin1(),
              "component");
        const QuickHeader h = QuickMp3Header(path);
        const QStringList texts = {h.bitRate + h.channelMode, h.frequency, h.layer, h.mpegVersion, h.crc};
        QTEST(texts.join(u' ').toLatin1(), "quick");
    }

    void summaryOutlivesFilesWithoutHeader()
    {
        const QString summary = u"Size: 32000 bytes\r\nLength: 2 seconds\r\nMPEG 1.0 layer 3\r\n128kbit, 0 frames\r\n"
                                "44100hz Joint Stereo\r\nPrivate: No\r\nCRCs: No\r\nCopyrighted: No\r\n"
                                "Original: Yes\r\nEmphasis: None"_s;
        Mp3Info info;
        info.setFileName(m_folder.makeFile(u"song.mp3"_s, song(32'000)));
        QCOMPARE(info.InfoString(), summary);
        info.setFileName(m_folder.makeFile(u"empty.mp3"_s));
        QCOMPARE(info.MpegVersion(), std::int16_t(25));
        info.setFileName(m_folder.path(u"missing.mp3"_s));
        QCOMPARE(info.InfoString(), summary);
        QCOMPARE(info.Mode(), QString());
    }

    void tagIsRead()
    {
        for (const auto &[end, hasTag, title, genre] : {
                 std::tuple(block("TAG", " A\tB\t", ' ', 17), true, u" A\tB\t"_s, 17),
                 {block("tAg", "A", '\0', '\xFF'), true, u"A"_s + QString(29, QChar(0)), 255},
                 {block("TAR", "A", ' ', 17), false, QString(), 12},
                 {block("TAG", "A", ' ', 17).append('.'), false, QString(), 12}, // One byte late.
             }) {
            for (const qsizetype length : {0, 4'919, 4'920, 50'000}) { // Within the first read, at its edge, beyond.
                Mp3Info info;
                info.setFileName(m_folder.makeFile(u"tag.mp3"_s, song(length) + end));
                QCOMPARE(info.HasTag(), hasTag);
                QCOMPARE(info.Title(), title);
                QCOMPARE(int(info.Genre()), genre);
            }
        }
    }

    void tagIsWrittenAndClearedInPlace()
    {
        Mp3Info info;
        info.setFileName(m_folder.makeFile(u"write.mp3"_s, song(10'000)));
        info.setTitle(u"Ünï 日本 and more than thirty characters"_s);
        info.setArtist(u"Abc"_s);
        info.setYear(u"19999"_s);
        info.setGenre(200);
        QCOMPARE(info.Title(), u"Ünï ?? and more than thirty ch"_s);
        QVERIFY(info.WriteTag());
        const QByteArray tag =
            QByteArray("TAG\xDCn\xEF ?? and more than thirty ch").append("Abc").leftJustified(93, ' ') +
            QByteArray("1999").leftJustified(34, ' ') + '\xC8';
        const QByteArray audio = song(10'000).first(9'872);
        QCOMPARE(m_folder.bytesOf(u"write.mp3"_s), audio + tag);
        QVERIFY(info.ClearTag() && !info.HasTag());
        QCOMPARE(m_folder.bytesOf(u"write.mp3"_s), audio + QByteArray(127, '\0') + '\xC8'); // The genre byte stays.
    }

    void noFileNoWrite()
    {
        const QByteArray shortTag = "TAG" + QByteArray(124, '.');
        const QString shortFile = m_folder.makeFile(u"short.mp3"_s, shortTag);
        const QString folder = m_folder.makeFolder(u"folder.mp3"_s);
        Mp3Info info;
        for (const QString &path : {QString(), m_folder.path(u"none.mp3"_s), folder, folder + u"\\"_s, shortFile}) {
            info.setFileName(path);
            QCOMPARE(info.FileName(), path == shortFile ? path : QString());
            QVERIFY(!info.HasTag() && !info.WriteTag() && !info.ClearTag());
        }
        QCOMPARE(m_folder.bytesOf(u"short.mp3"_s), shortTag);
    }

    void hugeFileIsReadAtBothEnds()
    {
        Mp3Info info;
        const QString path = m_folder.makeFile(u"huge.mp3"_s, song(100));
        QVERIFY(QFile::resize(displayPath(path), 4'294'967'296 + 32'000));
        info.setFileName(path);
        info.setTitle(u"Far"_s);
        QVERIFY(info.WriteTag());
        info.setFileName(path);
        QCOMPARE(info.Title(), u"Far"_s);
        QCOMPARE(info.Seconds(), std::int16_t(2));
    }

    void genreListIsOffByOne()
    {
        QStringList names;
        for (const int index : {-1, 0, 1, 13, 80, 120, 148, 149})
            names += Mp3Info::GenreText(index);
        QCOMPARE(names.join(u'|'), u"||Blues|Other|Hard Rock|Freestyle|Synthpop|"_s);
        Combo combo;
        for (const auto &[genre, position] : {std::pair{255, 0}, {-1, 0}, {148, 0}, {147, 148}, {0, 1}}) {
            Mp3Info::FillComboGenre(combo, genre);
            QCOMPARE(combo.current, position);
        }
        QCOMPARE(combo.items.size(), 149);
    }

    void sizesForPeople()
    {
        const QString sizes = u"-1 -0.0 12.5 0.00001 999 999.5 1000 1280 1023999 1023999.5 1024000 1536000 1572864 "
                              "1023999999 1024000000 1024000001 2147483648 nan"_s;
        const QString expected =
            u"|0 bytes|12.5 bytes|0.00001 bytes|999 bytes||1.0 KB|1.3 KB|1000.0 KB||0.98 MB|1.46 MB|"
            "1.5 MB|976.56 MB||0.95 GB|2.0 GB|"_s;
        QStringList texts;
        for (const QString &size : sizes.split(u' '))
            texts += Mp3Info::FormatFileSize(size.toDouble());
        QCOMPARE(texts.join(u'|'), expected);
    }

private:
    TestFolder m_folder;
};

QTEST_APPLESS_MAIN(Mp3InfoTest)
#include "tst_mp3_info.moc"
