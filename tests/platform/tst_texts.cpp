// SPDX-License-Identifier: GPL-3.0-or-later
// Windows-1252 and the text files written in it: no byte and no character may be lost on the way.
#include "platform/ansi_text.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class TextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyByteComesBack()
    {
        QByteArray bytes(256, '\0');
        std::generate(bytes.begin(), bytes.end(), [code = 0]() mutable { return static_cast<char>(code++); });
        QCOMPARE(toAnsi(fromAnsi(bytes)), bytes);
        QVERIFY(fitsAnsi(fromAnsi(bytes)));
        QCOMPARE(toAnsi(u"a日🎵b"_s), "a??b"); // One byte a character, whatever it takes here.
        QCOMPARE(toAnsi(QString(QChar(0xD83C)) + u'b'), "?b");
        QCOMPARE(fromAnsi("\x80\x8A\x9F\xA0\xFF"), u"€ŠŸ\u00A0ÿ"_s);
    }

    void textFilesLoseNothing()
    {
        for (const auto &[text, isMarked] : {
                 std::pair(u"Müll €\r\n"_s, false),
                 {u"MÃ¼ll"_s, true},            // Would be taken for UTF-8.
                 {u"ï»¿M\u00FCll"_s, true},     // Begins like the mark,
                 {u"\uFEFFSong"_s, true},       // and with it.
                 {u"M\xDCFCnchen.mp3"_s, true}, // The odd byte of a file name,
                 {u"歌\xDCFF\xDC80🎵"_s, true},  // and more beside another alphabet.
             }) {
            const QByteArray bytes = encodeTextFile(text);
            QCOMPARE(bytes.startsWith("\xEF\xBB\xBF"), isMarked);
            QCOMPARE(decodeTextFile(bytes), text);
        }
    }

    void editorsMayLeaveTheMarkOut()
    {
        QCOMPARE(decodeTextFile("M\xC3\xBCsik \xE6\xAD\x8C\r\n"), u"Müsik 歌\r\n"_s);
        QCOMPARE(decodeTextFile("M\xC3\xBCsik Ol\xE9"), u"MÃ¼sik Olé"_s);
        QCOMPARE(decodeTextFile("M\xC3\xBCsik \xC3"), u"MÃ¼sik Ã"_s); // Cut in a character.
    }
};

QTEST_APPLESS_MAIN(TextsTest)
#include "tst_texts.moc"
