// SPDX-License-Identifier: GPL-3.0-or-later
// Paths between the program and the host: every file of the host can be named, and is found again by that name.
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/terminal.h"
#include "support/table.h"
#include "support/test_files.h"

#include <QDir>

#include <memory>

using namespace Qt::StringLiterals;

class DrivesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapsProgramPathsToTheHost_data()
    {
        const QString data = dataFolder();
        const auto row = table<QString, QString, QString>("path", "host", "shown");
        row("capital drive, doubled backslashes", u"Z:\\a\\\\\\b\\\\"_s, u"/a/b/"_s, u"/a/b"_s);
        row("data folder", u"C:\\KIV Mp3"_s, data + u"/KIV Mp3"_s, data + u"/KIV Mp3"_s);
        row("no backslash after the drive", u"c:x"_s, data + u"/x"_s, data + u"/x"_s);
        row("host form stays", u"/a/b.mp3"_s, u"/a/b.mp3"_s, u"/a/b.mp3"_s);
        row("relative", u"..\\x"_s, u"../x"_s, u"../x"_s);
        row("stand-in of a backslash", u"z:\\a\uF05Cb"_s, u"/a\\b"_s, u"/a\\b"_s);
        row("a drive that is not there is shown as given", u"d:\\a\\b.mp3"_s, u""_s, u"d:\\a\\b.mp3"_s);
    }

    void mapsProgramPathsToTheHost()
    {
        QFETCH(QString, path);
        QTEST(QString::fromUtf8(hostPath(path)), "host");
        QTEST(displayPath(path), "shown");
    }

    void mapsHostPathsToTheProgram()
    {
        const QString beside = dataFolder() + u"x"_s;
        for (const auto &[given, path] : {
                 std::pair(u""_s, u""_s),
                 {u"/"_s, u"z:\\"_s},
                 {u"/a//b/"_s, u"z:\\a\\b\\"_s}, // A folder keeps its end.
                 {u"/a\\b"_s, u"z:\\a\uF05Cb"_s},
                 {u"x/../y.mp3"_s, programPath(QDir::currentPath()) + u"\\y.mp3"_s},
                 {u"c:\\a\\\\b"_s, u"c:\\a\\\\b"_s}, // The program's form stays.
                 {dataFolder(), u"c:\\"_s},
                 {beside, u"z:"_s + QString(beside).replace(u'/', u'\\')},
             })
            QCOMPARE(programPath(given), path);
    }

    void findsEveryNameOfTheHostAgain()
    {
        for (const QByteArray &name : {
                 "a\\b.mp3"_ba,                 // A backslash.
                 "M\xFCnchen.mp3"_ba,           // Latin 1.
                 "\xE6\x97\xA5\xE6\x97.mp3"_ba, // Cut in a character.
                 "\xED\xB2\x80.mp3"_ba,         // A surrogate, coded.
                 "\xEF\xBF\xBD\xFF.mp3"_ba,     // The replacement character beside an odd byte.
                 "\xEF\x81\x9C.mp3"_ba,         // The stand-in of a backslash.
                 "\xEF\xBB\xBFSong.mp3"_ba,     // A byte-order mark,
                 "\xEF\xBB\xBF\xFF.mp3"_ba,     // with an odd byte.
                 "a\n\"b\".mp3"_ba,
             }) {
            const TestFolder folder;
            const std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(
                std::fopen((folder.hostPath().toUtf8() + '/' + name).constData(), "w"), std::fclose);
            QVERIFY2(file, name.constData());
            const QStringList names = filesIn(folder.path(), {u"mp3"_s}).toStringList();
            QCOMPARE(names.size(), 1);
            QVERIFY2(!names[0].contains(u'\\'), name.constData());
            QVERIFY2(removeFile(folder.path(names[0])) && filesIn(folder.path()).isEmpty(), name.constData());
        }
    }

    void ignoresCaseOnlyWhereTheExactNameIsMissing()
    {
        const TestFolder folder;
        folder.makeFolder(u"Music"_s);
        folder.makeFile(u"Music/Song.mp3"_s, "Song");
        folder.makeFile(u"Music/SONG.mp3"_s, "SONG");
        folder.makeFile(u"Music/Ärger.mp3"_s, "sharp");
        const auto read = [&](const QString &name) {
            const auto [reading, bytes] = loadFile(folder.path(name));
            return reading == Reading::Done ? bytes : "nothing"_ba;
        };
        QCOMPARE(read(u"Music\\Song.mp3"_s), "Song");
        QCOMPARE(read(u"MUSIC\\Song.mp3"_s), "Song");
        QCOMPARE(read(u"music\\\\song.MP3"_s), "SONG"); // Several fit: always the same one.
        QCOMPARE(read(u"music\\äRGER.mp3"_s), "sharp");
        QCOMPARE(read(u"music\\Song.wav"_s), "nothing");
        QVERIFY(saveFile(folder.path(u"music\\ärger.MP3"_s), "new"));
        QCOMPARE(folder.bytesOf(u"Music/Ärger.mp3"_s), "new");
        QCOMPARE(filesIn(folder.path(u"Music"_s)).size(), 3);
    }

    void urisLeadToFilesAndBack()
    {
        for (const auto &[uri, path, back] : {
                 std::tuple(u"file:///a/b%20c.mp3"_s, u"z:\\a\\b c.mp3"_s, u"file:///a/b%20c.mp3"_s),
                 {u"FILE://localhost/5%25%23.mp3"_s, u"z:\\5%#.mp3"_s, u"file:///5%25%23.mp3"_s},
                 {u"file:///%FF%5C.mp3"_s, u"z:\\\xDCFF\xF05C.mp3"_s, u"file:///%FF%5C.mp3"_s},
                 {u"/5% ü?.mp3"_s, u"z:\\5% ü?.mp3"_s, u"file:///5%25%20%C3%BC%3F.mp3"_s},
             }) {
            QCOMPARE(pathOfUri(uri), path);
            QCOMPARE(fileUri(path), back);
        }
        for (const auto &refused : {u""_s, u"a.mp3"_s, u"http://a/b.mp3"_s, u"file://other/a.mp3"_s, u"/a\0.mp3"_s,
                                    u"file:///a%00.mp3"_s, u"c:\\a.mp3"_s})
            QCOMPARE(pathOfUri(refused), QString());
    }

    void quotesTheFile()
    {
        const QString here = programPath(QDir::currentPath());
        for (const auto &[file, text] : {
                 std::pair("\"c:\\a b.mp3\""_ba, u"\"c:\\a b.mp3\""_s), // Quoted already.
                 {"/\""_ba, u"\"z:\\\"\""_s},                           // One mark is a name.
                 {"\xE6\xAD\x8C.mp3"_ba, u'"' + here + u"\\歌.mp3\""_s},
                 {"file:///a/%C3%BC%20%FF.mp3"_ba, u"\"z:\\a\\ü \xDCFF.mp3\""_s},
                 {"file:///a%2.mp3"_ba, u"\"z:\\a%2.mp3\""_s},
                 {"file:a.mp3"_ba, u'"' + here + u"\\file:a.mp3\""_s}, // A name after all.
             })
            QCOMPARE(commandLineText(file), text);
    }
};

QTEST_GUILESS_MAIN(DrivesTest)
#include "tst_drives.moc"
