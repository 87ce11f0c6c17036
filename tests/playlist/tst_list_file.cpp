// The play list files: the reading rule on odd texts, and that what is saved comes back.
#include "playlist/list_file.h"
#include "tests/support/test_files.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

class TestListFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsAreCutByTheReadingRule_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("fields");
        QTest::newRow("nothing") << u""_s << QStringList{};
        QTest::newRow("every kind of line end")
            << u"a\nb\rc\r\n\r\nd\r\n"_s << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
        QTest::newRow("comma") << u"Artist, Song\r\n"_s << QStringList{u"Artist"_s, u"Song"_s};
        QTest::newRow("commas side by side") << u",a,,b,\r\nc"_s << QStringList{u""_s, u"a"_s, u""_s, u"b"_s, u"c"_s};
        QTest::newRow("quoted") << u"\"a, b\" , \"\"\r\nc"_s << QStringList{u"a, b"_s, u""_s, u"c"_s};
        QTest::newRow("quoted over two lines") << u"\"a\r\nb\"\r\nc"_s << QStringList{u"a\r\nb"_s, u"c"_s};
        QTest::newRow("text after a quote") << u"\"a\"b\r\n"_s << QStringList{u"a"_s, u"b"_s};
        QTest::newRow("quote inside") << u"a \"b\" c\r\n"_s << QStringList{u"a \"b\" c"_s};
        QTest::newRow("unclosed quote") << u"a\r\n\"b\r\nc\r\n"_s << QStringList{u"a"_s, u"b\r\nc\r\n"_s};
        QTest::newRow("end-of-file letters") << u"a\u001Ab\r\n\u001A\u001A"_s << QStringList{u"a\u001Ab"_s};
    }

    void fieldsAreCutByTheReadingRule()
    {
        QFETCH(QString, text);
        QTEST(fieldsOf(text), "fields");
    }

    void savedItemsComeBack_data()
    {
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("none") << QStringList{} << QByteArray();
        QTest::newRow("code page") << QStringList{u"Caf\u00E9"_s, u"b"_s} << QByteArray("Caf\xE9\r\nb\r\n");
        QTest::newRow("beyond it") << QStringList{u"\u6B4C \U0001F3B5"_s, u"Caf\u00E9"_s}
                                   << QByteArray("\xEF\xBB\xBF\xE6\xAD\x8C \xF0\x9F\x8E\xB5\r\nCaf\xC3\xA9\r\n");
        QTest::newRow("name of no valid letters") << QStringList{u"Caf\xDCE9"_s}
                                                  << QByteArray("\xEF\xBB\xBF"
                                                                "Caf\xE9\r\n");
    }

    void savedItemsComeBack()
    {
        QFETCH(QStringList, items);
        TestFolder folder;
        const QString path = folder.makeFile(u"PlayList.kiv"_s, "old contents\r\nof more lines\r\n");
        SaveListFile(path, items);
        QTEST(folder.bytesOf(u"PlayList.kiv"_s), "bytes");
        QCOMPARE(LoadListFile(path), items);
    }

    void filesOfAnyKindAreRead()
    {
        TestFolder folder;
        QCOMPARE(LoadListFile(folder.path(u"missing.kiv"_s)), QStringList());
        QCOMPARE(LoadListFile(folder.makeFolder(u"folder.kiv"_s)), QStringList());
        QByteArray everyByte;
        for (int i = 0; i < 1024; ++i)
            everyByte += static_cast<char>(i * 7);
        QVERIFY(LoadListFile(folder.makeFile(u"binary.kiv"_s, everyByte)).size() > 4);
        SaveListFile(folder.path(u"no folder\\PlayList.kiv"_s), {u"a"_s});
        QCOMPARE(LoadListFile(folder.path(u"no folder\\PlayList.kiv"_s)), QStringList());
    }

    // A rule that looks at the rest of the text for each field would take minutes.
    void aMillionLinesAreReadInAMoment()
    {
        TestFolder folder;
        const QString path = folder.makeFile(u"long.kiv"_s, QByteArray("Some Song\r\n").repeated(1'000'000));
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(LoadListFile(path).size(), 1'000'000);
        QVERIFY(timer.elapsed() < 10'000);
    }
};

QTEST_MAIN(TestListFile)
#include "tst_list_file.moc"
