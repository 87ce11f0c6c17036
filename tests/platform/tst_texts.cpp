// Windows-1252 and the text files written in it: no byte and no character may be lost on the way.
#include "platform/ansi_text.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class TextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void every_byte_comes_back()
    {
        QByteArray bytes(256, '\0');
        std::generate(bytes.begin(), bytes.end(), [code = 0]() mutable { return static_cast<char>(code++); });
        QCOMPARE(toAnsi(fromAnsi(bytes)), bytes);
        QVERIFY(fitsAnsi(fromAnsi(bytes)));
        QCOMPARE(toAnsi(u"a日🎵b"_s), "a??b"); // One byte a character, whatever it takes here.
        QCOMPARE(toAnsi(QString(QChar(0xD83C)) + u'b'), "?b");
        QCOMPARE(fromAnsi("\x80\x8A\x9F\xA0\xFF"), u"€ŠŸ\u00A0ÿ"_s);
    }

    void text_files_lose_nothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isMarked");
        QTest::newRow("fits") << u"Müll €\r\n"_s << false;
        QTest::newRow("begins like the mark") << u"ï»¿Song"_s << true;
        QTest::newRow("begins with the mark") << u"\uFEFFSong"_s << true;
        QTest::newRow("odd byte of a file name") << u"M\xDCFCnchen.mp3"_s << true;
        QTest::newRow("odd byte and another alphabet") << u"歌\xDCFF\xDC80🎵"_s << true;
    }

    void text_files_lose_nothing()
    {
        QFETCH(QString, text);
        const QByteArray bytes = encodeTextFile(text);
        QTEST(bytes.startsWith("\xEF\xBB\xBF"), "isMarked");
        QCOMPARE(decodeTextFile(bytes), text);
    }
};

QTEST_APPLESS_MAIN(TextsTest)
#include "tst_texts.moc"
