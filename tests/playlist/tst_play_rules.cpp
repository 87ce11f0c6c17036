// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of the play list and the search: how its files are read, what the times sum up to, which entry comes next,
// what is found and how that is shown.
#include "platform/files.h"
#include "playlist/dropped_files.h"
#include "playlist/list_file.h"
#include "playlist/play_order.h"
#include "playlist/play_times.h"
#include "playlist/song_match.h"
#include "support/crash_points.h"
#include "support/table.h"
#include "support/test_files.h"

#include <QRandomGenerator>

#include <set>

using namespace Qt::StringLiterals;

namespace
{
QStringList shownFor(const QStringList &names, const QString &text)
{
    std::vector<SongMatch> matches;
    SongNames(names).search(text, matches);
    QStringList shown;
    for (const SongMatch &match : matches)
        shown += shownResult(names[match.row], text);
    return shown;
}
} // namespace

class PlayRulesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void droppedFilesMeanSongsOrAFolder_data()
    {
        const auto row = table<QString, QString, QString>("dropped", "forPlayer", "forPlayList");
        row("nothing", u""_s, u"|"_s, u""_s);
        row("songs", u"b.mp3/A.MP3"_s, u"b.mp3|"_s, u"b.mp3/A.MP3"_s);
        row("another spelling", u"a.mp3"_s, u"a.mp3|"_s, u"A.MP3"_s);
        row("not mp3", u"c.wav/b.mp3"_s, u"c.wav|"_s, u"b.mp3"_s);
        row("no songs", u"text.txt/gone.mp3"_s, u"|"_s, u""_s);
        row("a folder named as a song", u"x.mp3"_s, u"|x.mp3"_s, u""_s);
        row("songs of a folder below", u"x.mp3\\d.mp3"_s, u"x.mp3\\d.mp3|"_s, u""_s);
        row("a link from elsewhere", u"x.mp3\\link.mp3/b.mp3"_s, u"x.mp3\\link.mp3|"_s, u"b.mp3"_s);
        row("the music folder", u"."_s, u"|."_s, u"A.MP3/b.mp3"_s);
        row("by a link to it", u"itself/itself\\b.mp3"_s, u"|itself"_s, u"A.MP3/b.mp3/b.mp3"_s);
    }

    void droppedFilesMeanSongsOrAFolder()
    {
        const TestFolder music;
        music.makeFolder(u"x.mp3"_s);
        for (const QString &name : {u"b.mp3"_s, u"A.MP3"_s, u"c.wav"_s, u"text.txt"_s, u"x.mp3/d.mp3"_s})
            music.makeFile(name);
        QVERIFY(QFile::link(music.hostPath() + u"/b.mp3"_s, music.hostPath() + u"/x.mp3/link.mp3"_s));
        QVERIFY(QFile::link(music.hostPath(), music.hostPath() + u"/itself"_s));
        QFETCH(QString, dropped);
        QStringList paths;
        for (const QString &name : dropped.split(u'/', Qt::SkipEmptyParts))
            paths += music.path(name);
        const ForPlayer player = meantForPlayer(paths, {u"mp3"_s, u"wav"_s});
        QTEST(QString(player.song + u'|' + player.folder).remove(music.path({})), "forPlayer");
        QCOMPARE(player.isNothing(), player.song.isEmpty() && player.folder.isEmpty());
        const QStringList names = meantForPlayList(paths, music.path());
        QTEST(names.join(u'/'), "forPlayList");
        QCOMPARE(isAnyForPlayList(paths, music.path()), !names.isEmpty());
    }

    void fieldsAreCutByTheReadingRule_data()
    {
        const auto row = table<QString, QStringList>("text", "fields");
        row("nothing", u""_s, {});
        row("every kind of line end", u"a\nb\rc\r\n\r\nd\r\n"_s, {u"a"_s, u"b"_s, u"c"_s, u"d"_s});
        row("comma", u"Artist, Song\r\n"_s, {u"Artist"_s, u"Song"_s});
        row("commas side by side", u",a,,b,\r\nc"_s, {u""_s, u"a"_s, u""_s, u"b"_s, u"c"_s});
        row("quoted", u"\"a, b\" , \"\"\r\nc"_s, {u"a, b"_s, u""_s, u"c"_s});
        row("quoted over two lines", u"\"a\r\nb\"\r\nc"_s, {u"a\r\nb"_s, u"c"_s});
        row("text after a quote", u"\"a\"b\r\n"_s, {u"a"_s, u"b"_s});
        row("quote inside", u"a \"b\" c\r\n"_s, {u"a \"b\" c"_s});
        row("quote closed at the end", u"a\r\n\"b, d\r\nc\r\n\""_s, {u"a"_s, u"b, d\r\nc\r\n"_s});
        row("quote never closed", u"\"a\" \"b, d\r\nc\r\n"_s, {u"a"_s, u"\"b"_s, u"d"_s, u"c"_s});
        row("end-of-file letters", u"a\u001Ab\r\n\u001A\u001A"_s, {u"a\u001Ab"_s});
    }

    void fieldsAreCutByTheReadingRule()
    {
        QFETCH(QString, text);
        QTEST(fieldsOf(text), "fields");
    }

    void savedItemsComeBack()
    {
        const TestFolder folder;
        const QString path = folder.makeFile(u"PlayList.kiv"_s, "old contents\r\nof more lines\r\n");
        for (const auto &[items, bytes] : {
                 std::pair(QStringList(), ""_ba),
                 {{u"Caf\u00E9"_s, u"b"_s}, "Caf\xE9\r\nb\r\n"_ba},
                 {{u"\u6B4C"_s, u"b"_s}, "\xEF\xBB\xBF\xE6\xAD\x8C\r\nb\r\n"_ba}, // Beyond the code page.
             }) {
            SaveListFile(path, items);
            QCOMPARE(folder.bytesOf(u"PlayList.kiv"_s), bytes);
            QCOMPARE(LoadListFile(path), items);
        }
    }

    void aListThatCouldNotBeReadStays()
    {
        const TestFolder folder;
        const QString path = folder.path(u"PlayList.kiv"_s);
        Fate fate = Fate::Met;
        int step = 1;
        for (; fate == Fate::Met; ++step) {
            folder.makeFile(u"PlayList.kiv"_s, "a\r\nb\r\n");
            fate = runWithFault(Fault::NoRead, step, [&] { // A start and an exit.
                createIfMissing(path);
                SaveListFile(path, LoadListFile(path));
            });
            QCOMPARE(folder.bytesOf(u"PlayList.kiv"_s), "a\r\nb\r\n");
        }
        QVERIFY(fate == Fate::Spared && step > 4);
    }

    void filesOfAnyKindAreRead()
    {
        const TestFolder folder;
        QCOMPARE(LoadListFile(folder.path(u"missing.kiv"_s)), QStringList());
        QCOMPARE(LoadListFile(folder.makeFolder(u"folder.kiv"_s)), QStringList());
        QByteArray everyByte;
        for (int i = 0; i < 1024; ++i)
            everyByte += static_cast<char>(i * 7);
        QVERIFY(LoadListFile(folder.makeFile(u"binary.kiv"_s, everyByte)).size() > 4);
        SaveListFile(folder.path(u"no folder\\PlayList.kiv"_s), {u"a"_s});
        QCOMPARE(LoadListFile(folder.path(u"no folder\\PlayList.kiv"_s)), QStringList());
    }

    void timesAreSummed_data()
    {
        const auto row = table<QString, int, int>("times", "seconds", "error");
        row("none", u""_s, 0, 0);
        row("an odd length adds the one before", u"3:05 x 1:00"_s, 430, 0);
        row("an odd length at first adds nothing", u"x 1:02:03 1:00"_s, 60, 0);
        row("signs", u"+1:-5"_s, 55, 0);
        row("no colon", u"12345"_s, 12 * 60 + 45, 0);
        row("minutes that are no number", u"1:00 x:00 5:00"_s, 60, 13);
        row("seconds that are no number", u"1:00 12:x0"_s, 60, 13);
    }

    void timesAreSummed()
    {
        QFETCH(QString, times);
        const PlayTimeSum sum = addPlayTimes(times.split(u' '));
        QTEST(sum.seconds, "seconds");
        QTEST(sum.error.value_or(ErrorRecord()).number, "error");
        QCOMPARE(addPlayTimes({u"99:99"_s, u"99:99"_s}, 2'147'483'000).seconds, 2'147'483'647);
    }

    void entriesFollowInOrder()
    {
        QCOMPARE(nextInOrder(0, 3, false), 1);
        QCOMPARE(nextInOrder(2, 3, true), 0);
        QCOMPARE(nextInOrder(-1, 3, false), 0);
        QCOMPARE(nextInOrder(0, 3, true), 0);
        QCOMPARE(nextInOrder(0, 1, true), 0);
    }

    void randomOrderLeavesOutWhatItRemembers()
    {
        QRandomGenerator generator(7);
        RandomOrder order([&generator] { return generator.generateDouble(); });
        std::set<int> seen;
        QList<int> drawn;
        for (int i = 0; i < 500; ++i) {
            const auto next = order.next(20);
            QVERIFY(next && *next > 0 && *next < 19);
            // Rejected draws count too and may move the place to write to: only the draw before is remembered for sure.
            QVERIFY(drawn.isEmpty() || drawn.last() != *next);
            drawn += *next;
            seen.insert(*next);
        }
        QCOMPARE(seen.size(), 18U);
    }

    void nothingLeftToDrawEndsTheDraw()
    {
        QRandomGenerator generator(7);
        RandomOrder order([&generator] { return generator.generateDouble(); });
        for (const int count : {0, 1, 2})
            QVERIFY(!order.next(count));
        QCOMPARE(order.next(3), 1);
        for (int i = 0; i < 100; ++i) // Far past what a 16-bit counter of draws holds.
            QVERIFY(!order.next(3));
        QCOMPARE(order.next(4), 2);
        RandomOrder stuck([] { return 1.0; });
        QCOMPARE(stuck.next(50), 48);
        QVERIFY(!stuck.next(50));
        QCOMPARE(RandomOrder([] { return 0.99999; }).next(100'001), 99'999);
    }

    void theFirstOccurrenceIsInCapitals_data()
    {
        const auto row = table<QStringList, QString, QStringList>("names", "text", "shown");
        const QStringList songs = {u"Love Song.mp3"_s, u"Glove.mp3"_s, u"Dove Love.mp3"_s, u"Zebra.wma"_s};
        row("middle", songs, u"ove"_s, {u"LOVE Song.mp3"_s, u"GlOVE.mp3"_s, u"DOVE Love.mp3"_s});
        row("empty text", songs, u""_s, songs);
        row("never over two names", {u"ab"_s, u"cd"_s}, u"bc"_s, {});
        row("text between two names", {u"ab"_s, u"cd"_s}, QString(QChar(0)), {});
        row("empty names", {u""_s, u"a"_s, u""_s}, u"a"_s, {u"A"_s});
        row("longer lower form", {u"\u0130zmir b\u0130b"_s}, u"b"_s, {u"\u0130zmir B\u0130b"_s});
        row("beyond 16 bits", {u"\U00010428x"_s}, u"\U00010400"_s, {u"\U00010400x"_s});
        row("half a letter", {u"a\xDCE9"_s}, u"\xDCE9"_s, {u"a\xDCE9"_s});
    }

    void theFirstOccurrenceIsInCapitals()
    {
        QFETCH(QStringList, names);
        QFETCH(QString, text);
        QTEST(shownFor(names, text), "shown");
    }

    // A text typed letter by letter, a letter taken back, another text: each time what a look at each name gives.
    void everySearchFindsTheNamesThatHoldTheText()
    {
        const QStringList letters = u"a|A|b| |9|ä|Ä|歌|𐐀|𐐨|\xDCFF|\xF05C"_s.split(u'|');
        QRandomGenerator random(1);
        const auto someText = [&](int most) {
            QString text;
            for (int length = random.bounded(most + 1); length > 0; --length)
                text += letters[random.bounded(random.bounded(2) == 0 ? 3 : static_cast<int>(letters.size()))];
            return text;
        };
        QStringList names;
        for (int i = 0; i < 300; ++i)
            names += someText(40);
        SongNames songs(names);
        std::vector<SongMatch> matches;
        for (QString text; const int &step : std::vector<int>(3000)) {
            Q_UNUSED(step);
            text = random.bounded(5) == 0   ? someText(12)
                   : random.bounded(3) == 0 ? text.chopped(!text.isEmpty())
                                            : text + someText(2);
            songs.search(text, matches);
            QStringList found;
            for (const SongMatch &match : matches)
                found += names[match.row];
            QCOMPARE(found, names.filter(text, Qt::CaseInsensitive));
        }
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

QTEST_APPLESS_MAIN(PlayRulesTest)
#include "tst_play_rules.moc"
