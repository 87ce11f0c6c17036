// SPDX-License-Identifier: GPL-3.0-or-later
// The settings file: odd texts that people and crashes leave behind, and what a write may never touch.
#include "base/ini_file.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "settings/settings_store.h"
#include "support/crash_points.h"
#include "support/table.h"
#include "support/test_files.h"

using namespace Qt::StringLiterals;

class SettingsStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsAKey_data()
    {
        const auto row = table<QString, QString>("text", "value");
        row("empty", u""_s, u""_s);
        row("other section", u"[A]\r\nKEY=1\r\n[S]\r\nX=2"_s, u""_s);
        row("case and blanks", u" [ s ] \n  kEy \t=  a b  \n"_s, u"a b"_s);
        row("CR only", u"[S]\rX=1\rKEY=2\r"_s, u"2"_s);
        row("first of two keys", u"[S]\nKEY=1\nKEY=2"_s, u"1"_s);
        row("first of two sections", u"[S]\nX=1\n[S]\nKEY=2"_s, u""_s);
        row("comment", u"[S]\n;KEY=1\n; KEY=1\nKEY=2"_s, u"2"_s);
        row("longer key", u"[S]\nKEYS=1\nKE=2\nKEY"_s, u""_s);
        row("one pair of quotes", u"[S]\nKEY = \"'a '\" "_s, u"'a '"_s);
        row("one quote", u"[S]\nKEY=\""_s, u"\""_s);
        row("unclosed section", u"[S\nKEY=1"_s, u""_s);
        row("equals in value", u"[S]\nKEY=a=b"_s, u"a=b"_s);
        row("zero bytes", u"[S]\n"_s + QString(9, QChar()) + u"\nKEY=a"_s + QChar() + u"b"_s, u"a"_s);
        row("huge line", u"[S]\n"_s + QString(1 << 20, u'x') + u"\nKEY=1"_s, u"1"_s);
        row("a name's own wide blank", u"[S]\nKEY=a\u00A0"_s, u"a\u00A0"_s);
    }

    void readsAKey()
    {
        QFETCH(QString, text);
        QTEST(iniValue(text, u"S", u"key"), "value");
    }

    void cutsLongValues()
    {
        for (const qsizetype length : {749, 750, 751}) {
            const QString text = u"[S]\nKEY=\""_s + QString(length, u'v') + u"\"\n"_s;
            QCOMPARE(iniValue(text, u"S", u"KEY"), QString(749, u'v'));
        }
    }

    void writesInPlace()
    {
        for (const auto &[before, after] : {
                 std::pair(u""_s, u"[S]\r\nKEY=v\r\n"_s),
                 {u"[A]\nx=1"_s, u"[A]\nx=1\n[S]\nKEY=v\n"_s}, // The last line is open.
                 {u"; c\n\n[S]\n a=1\n key = 2\r\nb=3"_s, u"; c\n\n[S]\n a=1\nKEY=v\r\nb=3"_s},
                 {u"[s]\rx=1\r\r[T]\rKEY=2"_s, u"[s]\rx=1\rKEY=v\r\r[T]\rKEY=2"_s}, // Before the gap.
                 {u"[S]"_s, u"[S]\r\nKEY=v\r\n"_s},
                 {u"[S]\r\nx=1\r\n"_s, u"[S]\r\nx=1\r\nKEY=v\r\n"_s},
             })
            QCOMPARE(withIniValue(before, u"S", u"KEY", u"v"_s), after);
    }

    void valuesComeBackAsTheyWere()
    {
        for (const QString &value : {u"z:\\Music "_s, u" \t"_s, u"\"a\""_s, u"'a'"_s, u"\""_s, u"a"_s, u""_s})
            QCOMPARE(iniValue(withIniValue({}, u"S", u"KEY", value), u"S", u"KEY"), value);
        QCOMPARE(withIniValue({}, u"S", u"KEY", u"z:\\\"A\" b"_s), u"[S]\r\nKEY=z:\\\"A\" b\r\n"_s);
    }

    void aFileSurvivesARoundTrip()
    {
        const TestFolder folder;
        const QString file = folder.makeFile(u"s.ini"_s, "\xEF\xBB\xBF[zelkmp3]\nvolume=-5\n");
        const QString japanese = u"z:\\\u97F3\u697D"_s;
        QString key = u"Mp3PATH"_s;
        WriteIniKey(u"ZelkMp3"_s, key, japanese + u"\n[ZelkMp3]"_s, file);
        QCOMPARE(ReadIniKey(u"ZelkMp3"_s, key, file), japanese + u" [ZelkMp3]"_s);
        QCOMPARE(key, u"mp3path"_s);
        WriteIniKey(u"ZelkMp3"_s, key, u"z:\\Ol\u00E9"_s, file);
        QCOMPARE(folder.bytesOf(u"s.ini"_s), QByteArray("[zelkmp3]\nvolume=-5\nMP3PATH=z:\\Ol\xE9\n"));
    }

    void aFileThatMayNotBeReadIsNotReplaced()
    {
        const TestFolder folder;
        const QString file = folder.makeFile(u"s.ini"_s, "[S]\nA=1\n");
        const QString host = folder.hostPath() + u"/s.ini"_s;
        QVERIFY(QFile::setPermissions(folder.hostPath(), QFile::Permissions(0x7777)) &&
                QFile::setPermissions(host, {}));
        QVERIFY(holdsForOrdinaryUser([&] {
            WriteIniKey(u"S"_s, u"B"_s, u"2"_s, file);
            return true;
        }));
        QVERIFY(QFile::setPermissions(host, QFile::ReadOwner));
        QCOMPARE(folder.bytesOf(u"s.ini"_s), QByteArray("[S]\nA=1\n"));
    }

    void aWriteWithoutItsFolderIsLost()
    {
        writeSetting(Setting::Volume, u"1"_s);
        QVERIFY(readSetting(Setting::Volume).isEmpty());
        QVERIFY(!FileExists(paths::settingsFolderTest));
        ensureSettingsFolder();
        writeSetting(Setting::Volume, u"-600"_s);
        QCOMPARE(readSetting(Setting::Volume), u"-600"_s);
        QVERIFY(FileExists(paths::settingsFolderTest));
        writeSideSetting(Setting::Mp3Path, u"c:\\a"_s);
        QVERIFY(FileExists(paths::sideFile) && readSetting(Setting::Mp3Path).isEmpty());
    }

    void whatCouldNotBeReadIsNeverWrittenOver()
    {
        ensureSettingsFolder();
        const QByteArray stored = "[ZelkMp3]\r\nMP3PATH=z:\\a\r\nVOLUME=-5\r\nALPHABLENDING=1\r\n";
        const QByteArray written = QByteArray(stored).replace("-5", "-7");
        Fate fate = Fate::Met;
        for (int step = 1; fate == Fate::Met; ++step) {
            QVERIFY(saveFile(paths::settingsFile, stored));
            fate = runWithFault(Fault::NoRead, step, [] { // A start and an exit.
                const bool isFirst = settingsAreMissing();
                const QString volume = readSetting(Setting::Volume);
                writeSetting(Setting::Volume, volume == u"-5"_s && !isFirst ? u"-7"_s : u"-1"_s);
            });
            const QByteArray left = loadFile(paths::settingsFile).bytes;
            QVERIFY2(left == written || (fate == Fate::Met && left == stored), left + QByteArray::number(step));
        }
        const QByteArray absurd = stored + QByteArray(2 << 20, '\0');
        QVERIFY(saveFile(paths::settingsFile, absurd));
        QVERIFY(readSetting(Setting::Volume).isEmpty() && !settingsAreMissing());
        writeSetting(Setting::Volume, u"-7"_s);
        QVERIFY(loadFile(paths::settingsFile).bytes == absurd);
        QVERIFY(removeFile(paths::settingsFile) && settingsAreMissing());
    }
};

QTEST_GUILESS_MAIN(SettingsStoreTest)
#include "tst_settings_store.moc"
