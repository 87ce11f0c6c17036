// SPDX-License-Identifier: GPL-3.0-or-later
// Windows-1252 and the text files written in it: no byte and no character may be lost on the way.
#include "platform/ansi_text.h"
#include "support/table.h"

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

    void textFilesLoseNothing_data()
    {
        const auto row = table<QString, bool>("text", "isMarked");
        row("Windows-1252", u"Müll €\r\n"_s, false);
        row("would be taken for UTF-8", u"MÃ¼ll"_s, true);
        row("begins like the mark", u"ï»¿M\u00FCll"_s, true);
        row("begins with the mark", u"\uFEFFSong"_s, true);
        row("odd byte of a file name", u"M\xDCFCnchen.mp3"_s, true);
        row("odd bytes beside another alphabet", u"歌\xDCFF\xDC80🎵"_s, true);
    }

    void textFilesLoseNothing()
    {
        QFETCH(QString, text);
        const QByteArray bytes = encodeTextFile(text);
        QTEST(bytes.startsWith("\xEF\xBB\xBF"), "isMarked");
        QCOMPARE(decodeTextFile(bytes), text);
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
