// SPDX-License-Identifier: GPL-3.0-or-later
// The shortcut file: what desktops read from it for any program path.
#include "platform/desktop.h"
#include "support/test_files.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

class DesktopShortcutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotesAnyProgram()
    {
        for (const auto &[target, command] : {
                 std::pair("/a b/p"_ba, "\"/a b/p\""_ba),
                 {"/\"$`"_ba, "\"/\\\\\"\\\\$\\\\`\""_ba},
                 {"/a\\b"_ba, "\"/a\\\\\\\\b\""_ba},
                 {"/50%f"_ba, "\"/50%%f\""_ba},
                 {"/a\nExec=b"_ba, "\"/a\\nExec=b\""_ba},
             }) {
            const QByteArrayList lines = shortcutText(u"KiV Mp3"_s, target, {}).split('\n');
            QVERIFY2(lines.contains("Exec=" + command) && lines.contains("Name=KiV Mp3"), target.constData());
        }
    }

    void makesAnExecutableFile()
    {
        const TestFolder desktop;
        QVERIFY(createDesktopShortcut(desktop.path() + u'\\', u"KiV Mp3"_s, AppFilePath()));
        QVERIFY(createDesktopShortcut(desktop.path(), u"KiV Mp3"_s, AppFilePath()));
        const QString file = desktop.hostPath() + u"/KiV Mp3.desktop"_s;
        QVERIFY(QFileInfo(file).isExecutable());
        QVERIFY(
            desktop.bytesOf(u"KiV Mp3.desktop"_s).contains("\nIcon=" + firstSkinFolder().toUtf8() + "/icon-128.png\n"));
        const QString validator = QStandardPaths::findExecutable(u"desktop-file-validate"_s);
        if (validator.isEmpty())
            QSKIP("desktop-file-validate is not installed");
        QCOMPARE(QProcess::execute(validator, {file}), 0);
    }

    void failsQuietly()
    {
        const TestFolder desktop;
        QVERIFY(shortcutText(u"a"_s, "/\xFF", {}).isEmpty());
        QVERIFY(!createDesktopShortcut(desktop.path(u"missing"_s), u"KiV Mp3"_s, u"/p"_s));
        QVERIFY(DesktopFolderPath().startsWith(u"z:\\"_s));
    }
};

QTEST_GUILESS_MAIN(DesktopShortcutTest)
#include "tst_desktop_shortcut.moc"
