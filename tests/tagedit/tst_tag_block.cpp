// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor's work on files: exact bytes, and no moment at which a song could be lost.
#include "platform/drives.h"
#include "platform/folders.h"
#include "support/crash_points.h"
#include "support/table.h"
#include "support/test_files.h"
#include "tagedit/editor_genres.h"
#include "tagedit/tag_block.h"

#include <QDir>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
const QByteArray audio = QByteArray(5000, 'x') + "end";
const QByteArray emptyTag = "TAG" + QByteArray(124, '\0') + '\xFF';
const Id3v1Tag jazz = {u" Títle — "_s, u"東京\U0001F3B5"_s,  QString(31, u'b'), u"19999"_s,
                       u"c"_s,         editorGenreNumber(77)};
const QByteArray jazzBlock = "TAG" + QByteArray(" T\xEDtle \x97").leftJustified(30, ' ') +
                             QByteArray("???").leftJustified(30, ' ') + QByteArray(30, 'b') + "1999" +
                             QByteArray("c").leftJustified(30, ' ') + '\x92';
} // namespace

using Work = bool (*)(const QString &);

class TagBlockTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void workChangesItsBytesOrNoneAtEveryFault_data()
    {
        const auto row = table<Work, QByteArray, QByteArray>("work", "before", "after");
        const Work save = [](const QString &path) { return saveTag(path, jazz); };
        row("add", Work(addTag), audio, audio.chopped(1) + '\0' + emptyTag);
        row("add to nothing", Work(addTag), QByteArray(), emptyTag);
        row("save", save, audio + emptyTag, audio + jazzBlock);
        row("save without a tag", save, audio, audio.chopped(128) + jazzBlock);
        row("save, shorter", save, QByteArray(127, 'x'), QByteArray(127, 'x'));
        row("remove", Work(removeTag), audio + jazzBlock, audio);
        row("remove without a tag", Work(removeTag), audio, audio.chopped(128));
        row("remove all there is", Work(removeTag), emptyTag, QByteArray());
        row("remove, shorter", Work(removeTag), QByteArray(127, 'x'), QByteArray(127, 'x'));
    }

    void workChangesItsBytesOrNoneAtEveryFault()
    {
        QFETCH(Work, work);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const TestFolder other;
        other.makeFile(u"GONE.mp3"_s, before);
        QVERIFY(!work(other.path(u"gone.mp3"_s)) && other.bytesOf(u"GONE.mp3"_s) == before);
        for (const Fault fault : {Fault::Death, Fault::DiskFull}) {
            Fate fate = Fate::Met;
            for (int step = 1; fate == Fate::Met; ++step) {
                const TestFolder folder;
                const QString path = folder.makeFile(u"a.mp3"_s, before);
                fate = runWithFault(fault, step, [&] {
                    if (work(path) != (folder.bytesOf(u"a.mp3"_s) != before))
                        std::abort(); // What it says is not what the file holds.
                });
                const QByteArray left = folder.bytesOf(u"a.mp3"_s);
                const bool added =
                    fault == Fault::Death && left == before + emptyTag; // The former last byte goes last.
                QVERIFY(left == after || (fate == Fate::Met && (left == before || added)));
                QVERIFY(fault == Fault::Death ||
                        QDir(folder.hostPath()).entryList(QDir::Files | QDir::Hidden).size() == 1);
            }
        }
    }

    void removalKeepsLinksAndPermissions()
    {
        const TestFolder folder;
        const QString song = folder.makeFile(u"a.mp3"_s, audio + jazzBlock);
        folder.makeFolder(u"links"_s);
        const QByteArray link = hostPath(folder.path(u"links\\b.mp3"_s));
        QVERIFY(::symlink("../a.mp3", link) == 0 && ::chmod(hostPath(song), 0604) == 0);
        const bool given = ::chown(hostPath(song), 65534, 65534) == 0;
        QVERIFY(removeTag(folder.path(u"links\\b.mp3"_s)));
        struct stat status = {};
        QVERIFY(::lstat(link, &status) == 0 && S_ISLNK(status.st_mode));
        QVERIFY(::stat(link, &status) == 0 && (status.st_mode & 07777) == 0604);
        QVERIFY(!given || (status.st_uid == 65534 && status.st_gid == 65534));
        QCOMPARE(folder.bytesOf(u"a.mp3"_s), audio);
        QVERIFY(::chmod(folder.hostPath().toUtf8(), 0777) == 0 && ::chmod(hostPath(song), 0444) == 0);
        QVERIFY(holdsForOrdinaryUser([&] { return !addTag(song) && !saveTag(song, jazz) && !removeTag(song); }));
        QCOMPARE(folder.bytesOf(u"a.mp3"_s), audio);
    }

    void readingTrimsBlanksAlone()
    {
        const TestFolder folder;
        QByteArray bytes = audio + jazzBlock;
        bytes.replace("TAG", "tAg").replace("c   ", "c\t\0 "_ba);
        const auto tag = readTag(folder.makeFile(u"a.mp3"_s, bytes)).tag;
        QVERIFY(tag.has_value());
        QCOMPARE(tag->title, u"Títle —"_s);
        QCOMPARE(tag->comment, u"c\t"_s + QChar(0));
        QCOMPARE(tag->genre, 146);
        const QStringList untagged = {folder.makeFile(u"b.mp3"_s, audio), folder.makeFile(u"c.mp3"_s, "TAG")};
        for (const QString &path : untagged)
            QVERIFY(readTag(path).isDone && !readTag(path).tag);
        QCOMPARE(runWithFault(Fault::NoRead, 3,
                              [&] { // Unread is not the same as untagged.
                                  if (readTag(untagged.first()).isDone)
                                      std::abort();
                              }),
                 Fate::Met);
    }

    void nameGivesArtistAndTitle()
    {
        for (const auto &[name, artist, title] : {
                 std::tuple(u"Some Artist - Some Song.mp3"_s, u"Some Artist"_s, u"Some Song"_s),
                 {u" a  -b - c .mp3"_s, u" a"_s, u"b - c "_s},
                 {u" Song.mp3"_s, u""_s, u" Song"_s},
                 {u"a-b"_s, u"a"_s, u""_s},
             }) {
            QCOMPARE(tagFromName(name).artist, artist);
            QCOMPARE(tagFromName(name).title, title);
        }
    }

    void genresKeepTheirOwnNumbers()
    {
        for (const auto &[number, name] :
             {std::pair<std::uint8_t, QByteArray>(8, "Jazz+Funk"), {148, "Turbo Folk"}, {0, "Blues"}})
            QCOMPARE(QByteArray(editorGenres[static_cast<std::size_t>(editorGenrePosition(number))].name), name);
        QCOMPARE(editorGenrePosition(149), noGenrePosition);
        QCOMPARE(editorGenreNumber(noGenrePosition), noGenreNumber);
        QCOMPARE(editorGenreNumber(149), noGenreNumber);
    }
};

QTEST_GUILESS_MAIN(TagBlockTest)
#include "tst_tag_block.moc"
