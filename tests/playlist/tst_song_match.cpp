// Search by name: what is found, how it is shown, and that odd letters keep every position within the name.
#include "playlist/song_match.h"

#include <QTest>

using namespace Qt::StringLiterals;

static QStringList shownFor(const QStringList &names, const QString &text)
{
    const SongNames songs(names);
    QStringList shown;
    for (const SongMatch &match : songs.search(text))
        shown += capitalised(names[match.index], match.position, text.size());
    return shown;
}

class TestSongMatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstOccurrenceIsInCapitals_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("shown");
        const QStringList songs = {u"Love Song.mp3"_s, u"Glove.mp3"_s, u"Dove Love.mp3"_s, u"Zebra.wma"_s};
        QTest::newRow("middle") << songs << u"ove"_s
                                << QStringList{u"LOVE Song.mp3"_s, u"GlOVE.mp3"_s, u"DOVE Love.mp3"_s};
        QTest::newRow("empty text") << songs << u""_s << songs;
        QTest::newRow("never over two names") << QStringList{u"ab"_s, u"cd"_s} << u"bc"_s << QStringList{};
        QTest::newRow("text between two names") << QStringList{u"ab"_s, u"cd"_s} << QString(QChar(0)) << QStringList{};
        QTest::newRow("empty names") << QStringList{u""_s, u"a"_s, u""_s} << u"a"_s << QStringList{u"A"_s};
        QTest::newRow("longer lower form")
            << QStringList{u"\u0130zmir b\u0130b"_s} << u"b"_s << QStringList{u"\u0130zmir B\u0130b"_s};
        QTest::newRow("beyond 16 bits") << QStringList{u"\U00010428x"_s} << u"\U00010400"_s
                                        << QStringList{u"\U00010400x"_s};
        QTest::newRow("half a letter") << QStringList{u"a\xDCE9"_s} << u"\xDCE9"_s << QStringList{u"a\xDCE9"_s};
    }

    void theFirstOccurrenceIsInCapitals()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, text);
        QTEST(shownFor(names, text), "shown");
    }

    // Positions hold only if no letter changes its length in lower case; and a result must still name its file.
    void everyLetterIsFoundInItself()
    {
        for (char32_t letter = 1; letter <= 0x1FFFF; ++letter) {
            const QString text = QString::fromUcs4(&letter, 1);
            if (QChar::isSurrogate(letter))
                continue;
            const QString name = text + u'|' + text;
            const QStringList shown = shownFor({name}, u'|' + text);
            QVERIFY2(shown.size() == 1, qPrintable(QString::number(letter, 16)));
            QVERIFY2(shown[0].compare(name, Qt::CaseInsensitive) == 0, qPrintable(QString::number(letter, 16)));
        }
    }
};

QTEST_MAIN(TestSongMatch)
#include "tst_song_match.moc"
