// SPDX-License-Identifier: GPL-3.0-or-later
// Skins from anywhere: what archives and folders may try, and what keeping a skin may never touch or lose.
#include "platform/desktop.h"
#include "platform/folders.h"
#include "platform/scratch_folder.h"
#include "settings/skin_install.h"
#include "support/crash_points.h"
#include "support/table.h"
#include "support/test_files.h"

#include <QDirIterator>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

using namespace Qt::StringLiterals;

namespace
{
struct Entry {
    QByteArray name;
    QByteArray bytes;
    quint32 kind = 0; // As Unix has it.
    quint16 flags = 0;
    QByteArray packed = {}; // What is in the archive instead of the bytes that it is told to be.
};

constexpr quint16 encrypted = 1;
const Entry skinText{"skin.ini", "T"};

Entry packedEntry(const QByteArray &name, const QByteArray &bytes)
{
    const QByteArray compressed = qCompress(bytes);
    return {name, bytes, 0, 0, compressed.sliced(6, compressed.size() - 10)}; // Without its frame.
}

// A gigabyte of zeros: one, then copies of 258 of them, eight of which are 13 bytes.
QByteArray bomb()
{
    return QByteArray::fromHex("6318") + QByteArray::fromHex("05a360148c8251300a46c12818").repeated(520'000);
}

QByteArray number(qint64 value, int bytes)
{
    QByteArray text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

QByteArray sumOf(const QByteArray &bytes)
{
    const auto *data = reinterpret_cast<const Bytef *>(bytes.constData());
    return number(static_cast<qint64>(::crc32_z(0, data, static_cast<z_size_t>(bytes.size()))), 4);
}

QByteArray archiveOf(const QList<Entry> &entries)
{
    QByteArray archive;
    QByteArray directory;
    for (const Entry &entry : entries) {
        const QByteArray body = entry.packed.isEmpty() ? entry.bytes : entry.packed;
        const QByteArray common = number(entry.flags, 2) + number(entry.packed.isEmpty() ? 0 : 8, 2) + number(0, 4) +
                                  sumOf(entry.bytes) + number(body.size(), 4) + number(entry.bytes.size(), 4) +
                                  number(entry.name.size(), 2);
        directory += "PK\1\2" + number(0x031E, 2) + number(20, 2) + common + number(0, 8) +
                     number(qint64(entry.kind) << 16, 4) + number(archive.size(), 4) + entry.name;
        archive += "PK\3\4" + number(20, 2) + common + number(0, 2) + entry.name + body;
    }
    return archive + directory + "PK\5\6" + number(0, 4) + number(entries.size(), 2) + number(entries.size(), 2) +
           number(directory.size(), 4) + number(archive.size(), 4) + number(0, 2);
}

// "Blue: Mp3Frm.jpg=A skin.ini=T", or the fault and what came all the same.
QString told(const SkinFiles &skin)
{
    QString text = skin.fault.isEmpty() ? skin.name + u':' : skin.fault;
    for (const auto &[name, bytes] : skin.files.asKeyValueRange())
        text += u' ' + name + u'=' + QString::fromUtf8(bytes);
    return text;
}

// Every entry below a host folder, with what it holds or leads to.
QMap<QString, QByteArray> treeOf(const QString &folder)
{
    QMap<QString, QByteArray> tree;
    constexpr auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (QDirIterator each(folder, all, QDirIterator::Subdirectories); each.hasNext();) {
        const QFileInfo entry(each.next());
        QFile file(entry.filePath());
        const bool isRead = entry.isFile() && !entry.isSymLink() && file.open(QIODevice::ReadOnly);
        tree.insert(entry.filePath(), isRead ? file.readAll() : entry.symLinkTarget().toUtf8());
    }
    return tree;
}

QString keptFolder(const QString &name)
{
    return dataFolder() + u"/skins/"_s + name;
}

SkinFiles skinOf(const QByteArray &mark, const QString &name = u"Mine"_s)
{
    return {name, {}, {{u"skin.ini"_s, mark}, {u"bPlay.png"_s, mark + "P"}, {u"Mp3Frm.jpg"_s, mark + "M"}}, {}};
}

bool isWhole(const QByteArray &mark)
{
    return skinIn(programPath(keptFolder(u"Mine"_s))).files == skinOf(mark).files;
}

QString trashFolder()
{
    return qEnvironmentVariable("XDG_DATA_HOME") + u"/Trash/"_s;
}

void removeKept()
{
    QDir(dataFolder() + u"/skins"_s).removeRecursively();
}
} // namespace

class SkinFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        removeKept();
        QDir(trashFolder()).removeRecursively();
    }

    // First of all: what the process has ever held cannot be forgotten.
    void aBombCostsNoMoreThanItsBound()
    {
        const TestFolder folder;
        const QString path = folder.makeFile(u"In.zip"_s, archiveOf({skinText, {"bPlay.png", "Zero", 0, 0, bomb()}}));
        const auto mostHeldKb = [] {
            rusage usage = {};
            ::getrusage(RUSAGE_SELF, &usage);
            return usage.ru_maxrss;
        };
        const long before = mostHeldKb();
        QCOMPARE(told(skinIn(path)), u"bPlay.png in In.zip is larger than 8 MB."_s);
        QVERIFY(mostHeldKb() - before < 64 * 1024);
    }

    void takesASkinOutOfAnArchive_data()
    {
        const auto add = table<QByteArray, QString>("archive", "expected");
        const auto row = [add](const char *name, const QList<Entry> &entries, const QString &expected) {
            add(name, archiveOf(entries), expected);
        };
        const QString textOnly = u"In: skin.ini=T"_s;
        const QString none = u"In.zip holds no skin: there is no skin.ini in it."_s;
        const QString many = u"In.zip holds more than 4096 files, which no skin has."_s;
        add("no archive", QByteArray(1000, 'x'), u"In.zip is damaged, or is no zip archive."_s);
        add("directory of a million", QByteArray("PK\1\2").repeated(1000000), many);
        row("nothing", {}, none);
        row("foreign files", {skinText, {"run.sh", "x"}, {"bPlay.svg", "x"}, {"icon-22@2x.png", "I"}},
            u"In: icon-22@2x.png=I skin.ini=T"_s);
        row("in folders",
            {{"a/Blue/skin.ini", "T"}, {"a/bPlay.png", "x"}, {"a/Blue/b/bStop.png", "x"}, {"a/Blue/", ""}},
            u"Blue: skin.ini=T"_s);
        row("the nearest",
            {{"In/b/skin.ini", "x"}, {"In/skin.ini", "T"}, {"In/c/skin.ini", "x"}, {"In/c/bPlay.png", "x"}}, textOnly);
        row("two as near", {{"a/skin.ini", "x"}, {"b/skin.ini", "x"}},
            u"In.zip holds more than one skin: unpack it, and drop the folder of one."_s);
        row("beside macOS's own", {{"__MACOSX/skin.ini", "x"}, {"In/skin.ini", "T"}}, textOnly);
        row("other separators", {{".\\In\\.\\skin.ini", "T"}, {"./In/bPlay.png", "P"}},
            u"In: bPlay.png=P skin.ini=T"_s);
        row("other case", {{"SKIN.INI", "T"}, {"mp3frm.JPG", "x"}, {"Mp3Frm.jpg", "M"}, {"MP3FRM.JPG", "x"}},
            u"In: Mp3Frm.jpg=M skin.ini=T"_s);
        row("names given twice", {skinText, {"skin.ini", "x"}, {"BPLAY.png", "P"}, {"bplay.png", "x"}},
            u"In: bPlay.png=P skin.ini=T"_s);
        row("ways out",
            {{"../bPlay.png", "x"}, {"/bPlay.png", "x"}, {"a/../bPlay.png", "x"}, {"\\bPlay.png", "x"}, skinText},
            textOnly);
        row("only ways out", {{"../skin.ini", "x"}, {"/etc/skin.ini", "x"}, {"a/../../b/skin.ini", "x"}}, none);
        row("links and devices", {skinText, {"bPlay.png", "/etc/passwd", S_IFLNK}, {"bStop.png", "", S_IFCHR}},
            textOnly);
        row("a link as text", {{"skin.ini", "/etc/passwd", S_IFLNK | 0777}}, none);
        row("odd names", {skinText, {"\xFF\xFE\x80", "x"}, {QByteArray("bPlay\0.png", 10), "x"}, {"", "x"}}, textOnly);
        row("encrypted", {skinText, {"bPlay.png", "x", 0, encrypted}}, u"bPlay.png in In.zip is encrypted."_s);
        row("a long text", {{"skin.ini", QByteArray((1 << 16) + 1, 'x')}},
            u"skin.ini in In.zip is larger than 64 KB."_s);
        row("too many", QList<Entry>(4097, skinText), many);
        QList<Entry> large{skinText};
        for (const QString &name : skinFileNames().sliced(1, 9))
            large += packedEntry(name.toUtf8(), QByteArray(qsizetype(1) << 23, '\0'));
        row("large in all", large, u"In.zip holds pictures of more than 64 MB, which no skin has."_s);
    }

    void takesASkinOutOfAnArchive()
    {
        QFETCH(QByteArray, archive);
        const TestFolder folder;
        const auto before = treeOf(QDir::homePath());
        const SkinFiles skin = skinIn(folder.makeFile(u"In.zip"_s, archive));
        QTEST(told(skin), "expected");
        QCOMPARE(keepSkin(skin, Existing::Keep).result,
                 skin.fault.isEmpty() ? RenameResult::Done : RenameResult::Failed);
        QDir(keptFolder(skin.name)).removeRecursively();
        QDir().rmdir(keptFolder({}));
        QCOMPARE(treeOf(QDir::homePath()), before);
    }

    void damageNeverPassesAsASkin()
    {
        const TestFolder folder;
        const QByteArray whole =
            archiveOf({{"skin.ini", "Text"}, packedEntry("bPlay.png", QByteArray(99, 'P')), {"Mp3Frm.jpg", "Large"}});
        for (qsizetype cut = 0; cut < whole.size(); ++cut) {
            const QString path = folder.makeFile(u"In.zip"_s, whole.first(cut));
            QVERIFY2(!skinIn(path).fault.isEmpty() && skinIn(path).files.isEmpty(), qPrintable(QString::number(cut)));
        }
        const QByteArrayList originals = {"Text", QByteArray(99, 'P'), "Large"};
        for (qsizetype at = 0; at < whole.size(); ++at) {
            QByteArray damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
            for (const QByteArray &bytes : skinIn(folder.makeFile(u"In.zip"_s, damaged)).files)
                QVERIFY2(originals.contains(bytes), qPrintable(QString::number(at)));
        }
        const QString path = folder.makeFile(u"In.zip"_s, whole);
        QVERIFY(isMeantAsSkin(path) && QFile::resize(folder.hostPath() + u"/In.zip"_s, (qint64(1) << 26) + 1));
        QCOMPARE(skinIn(path).fault, u"In.zip is larger than 64 MB, which no skin is."_s);
        QVERIFY(removeFile(path) && ::mkfifo(hostPath(path).constData(), 0600) == 0);
        QVERIFY(!isMeantAsSkin(path));
        QCOMPARE(skinIn(path).fault, u"In.zip cannot be read."_s);
    }

    void takesOnlyFilesOfAFolder()
    {
        const TestFolder folder;
        folder.makeFile(u"secret"_s, "x");
        const QString skin = folder.makeFolder(u"Blue"_s);
        const auto put = [&](const QString &name, const QByteArray &bytes) {
            return folder.makeFile(u"Blue/"_s + name, bytes);
        };
        QVERIFY(!isMeantAsSkin(skin) && !isMeantAsSkin(put(u"song.mp3"_s, {})));
        put(u"skin.ini"_s, "T");
        put(u"MP3FRM.jpg"_s, "M");
        put(u"run.sh"_s, "x");
        const QDir in(folder.hostPath() + u"/Blue"_s);
        QVERIFY(in.mkdir(u"bStop.png"_s) && QFile::link(u"../secret"_s, in.filePath(u"bNext.png"_s)));
        QVERIFY(QFile::link(u"/dev/zero"_s, in.filePath(u"Mp3Frm.jpg"_s)));
        QCOMPARE(::mkfifo(qPrintable(in.filePath(u"bPlay.png"_s)), 0600), 0);
        QVERIFY(isMeantAsSkin(skin));
        QCOMPARE(told(skinIn(skin + u'\\')), u"Blue: Mp3Frm.jpg=M skin.ini=T"_s);
        QVERIFY(QFile::link(in.path(), folder.hostPath() + u"/link.zip"_s));
        QCOMPARE(told(skinIn(folder.path(u"link.zip"_s))), u"link.zip: Mp3Frm.jpg=M skin.ini=T"_s);
        QVERIFY(QFile::resize(in.filePath(u"MP3FRM.jpg"_s), (1 << 23) + 1));
        QCOMPARE(told(skinIn(skin)), u"Mp3Frm.jpg in Blue is larger than 8 MB."_s);
        QVERIFY(::chmod(qPrintable(in.filePath(u"MP3FRM.jpg"_s)), 0) == 0 &&
                ::chmod(qPrintable(in.path()), 0755) == 0 && ::chmod(qPrintable(folder.hostPath()), 0755) == 0);
        QVERIFY(holdsForOrdinaryUser(
            [&] { return told(skinIn(skin)) == u"Mp3Frm.jpg in Blue cannot be read: Permission denied."_s; }));
    }

    void namesAreMadeHarmless()
    {
        for (const auto &[name, kept] : {
                 std::pair(u"../../evil"_s, u"evil"_s),
                 {u"a/b\\c:d\n\0e*"_s, u"abcde"_s},
                 {u"-.- Bl\u00FCe (2).v1_x. "_s, u"Bl\u00FCe (2).v1_x"_s},
                 {u"u\u0308 \u0915\u094D\U00020000"_s, u"\u00FC \u0915\u094D\U00020000"_s},
                 {u"\u202Egnp"_s + QChar(0xD800), u"gnp"_s},
                 {u"\u0308./\x7F"_s, u""_s},
                 {QString(59, u'x') + u"\U00020000"_s, QString(59, u'x')},
             })
            QCOMPARE(keptName(name), kept);
        for (const QString &name : {u"..."_s, u"GRAPHITE"_s}) {
            const KeptSkin kept = keepSkin(skinOf("x", name), Existing::Replace);
            QVERIFY(kept.result == RenameResult::Failed && kept.fault.endsWith(u'.'));
            QVERIFY(!QFileInfo::exists(keptFolder({})));
        }
    }

    void anOlderSkinGoesToTheTrash()
    {
        QCOMPARE(keepSkin(skinOf("1"), Existing::Keep).result, RenameResult::Done);
        const auto before = treeOf(QDir::homePath());
        const KeptSkin second = keepSkin(skinOf("2", u"mine"_s), Existing::Keep);
        QCOMPARE(second.result, RenameResult::OtherExists);
        QCOMPARE(second.name, u"Mine"_s);
        QCOMPARE(treeOf(QDir::homePath()), before);
        const SkinFiles itself = skinIn(programPath(keptFolder(u"Mine"_s)));
        QCOMPARE(keepSkin(itself, Existing::Replace).name, u"Mine"_s);
        QCOMPARE(treeOf(QDir::homePath()), before);

        QFile own(keptFolder(u"Mine/notes.txt"_s));
        QVERIFY(own.open(QIODevice::WriteOnly) && own.write("mine") == 4);
        own.close();
        QCOMPARE(keepSkin(skinOf("2"), Existing::Replace).result, RenameResult::Done);
        QVERIFY(isWhole("2"));
        const QString trash = trashFolder();
        const auto thrown = treeOf(trash);
        QCOMPARE(thrown.value(trash + u"files/Mine/notes.txt"_s), "mine");
        QCOMPARE(thrown.value(trash + u"files/Mine/skin.ini"_s), "1");
        QVERIFY(
            thrown.value(trash + u"info/Mine.trashinfo"_s).contains("\nPath=" + keptFolder(u"Mine"_s).toUtf8() + '\n'));
        QCOMPARE(QDir(keptFolder({})).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList(u"Mine"_s));
    }

    // Of whatever happens in the middle the next install leaves nothing, and there is one whole skin all the time.
    void nothingIsLostHalfway_data()
    {
        const auto row = table<Fault, bool>("fault", "replaces");
        row("new, killed", Fault::Death, false);
        row("new, full disk", Fault::DiskFull, false);
        row("replacing, killed", Fault::Death, true);
        row("replacing, full disk", Fault::DiskFull, true);
    }

    void nothingIsLostHalfway()
    {
        QFETCH(Fault, fault);
        QFETCH(bool, replaces);
        int steps = 0;
        int unnoticed = 0;
        for (Fate fate = Fate::Met; fate == Fate::Met; ++steps) {
            removeKept();
            if (replaces)
                QCOMPARE(keepSkin(skinOf("1"), Existing::Keep).result, RenameResult::Done);
            fate = runWithFault(fault, steps + 1, [&] {
                const KeptSkin kept = keepSkin(skinOf("2"), Existing::Replace);
                if (kept.result == RenameResult::Failed &&
                    (!kept.fault.endsWith(u": No space left on device."_s) || isWhole("2")))
                    ::_exit(1);
            });
            QVERIFY2(fate != Fate::Crashed, qPrintable(QString::number(steps + 1)));
            const bool isOld = replaces ? isWhole("1") : !QFileInfo::exists(keptFolder(u"Mine"_s));
            QVERIFY2(isOld || isWhole("2"), qPrintable(QString::number(steps + 1)));
            unnoticed += fate == Fate::Met && fault == Fault::DiskFull && isWhole("2") ? 1 : 0;
            const QDir skins(keptFolder({}));
            const auto hidden = [&] {
                return skins.entryList({u".*"_s}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
            };
            if (fault == Fault::DiskFull)
                QCOMPARE(hidden(), QStringList());
            QCOMPARE(keepSkin(skinOf("3", u"Other"_s), Existing::Keep).result, RenameResult::Done);
            QCOMPARE(hidden(), QStringList());
        }
        QVERIFY(steps > 8 && unnoticed <= (replaces ? 4 : 1)); // New names may be lost again by a power cut.
    }

    void whatLivesOrIsForeignIsLeftAlone()
    {
        const QByteArray skins = QFile::encodeName(keptFolder({}));
        auto living = ScratchFolder::make(skins, {"skin.ini"});
        QVERIFY(living && living->write("skin.ini", "T"));
        QVERIFY(QDir(keptFolder({})).mkpath(u".new-abcdef/mine"_s) && QDir(keptFolder({})).mkdir(u".new-s"_s));
        QCOMPARE(keepSkin(skinOf("1"), Existing::Keep).result, RenameResult::Done);
        QVERIFY(QFileInfo::exists(keptFolder(u".new-abcdef/mine"_s)) && QFileInfo::exists(keptFolder(u".new-s"_s)));
        QCOMPARE(living->commit(skins + "Other", Existing::Keep), RenameResult::Done);
        QCOMPARE(treeOf(keptFolder(u"Other"_s)).value(keptFolder(u"Other/skin.ini"_s)), "T");
    }

    void aReadOnlyFolderIsSaid()
    {
        QVERIFY(::chmod(qPrintable(dataFolder()), 0555) == 0 && ::chmod(qPrintable(QDir::homePath()), 0755) == 0);
        QVERIFY(holdsForOrdinaryUser([] {
            const KeptSkin kept = keepSkin(skinOf("1"), Existing::Keep);
            return kept.result == RenameResult::Failed && kept.fault.endsWith(u": Permission denied."_s);
        }));
        QCOMPARE(::chmod(qPrintable(dataFolder()), 0755), 0);
    }
};

QTEST_GUILESS_MAIN(SkinFilesTest)
#include "tst_skin_files.moc"
