// The shortcut file: what desktops read from it for any program path.
#include "platform/desktop_places.h"
#include "platform/desktop_shortcut.h"
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
    void quotes_any_program_data();
    void quotes_any_program();
    void makes_an_executable_file();
    void fails_quietly();
};

void DesktopShortcutTest::quotes_any_program_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("blank") << QByteArray("/a b/p") << QByteArray("\"/a b/p\"");
    QTest::newRow("quote, dollar, tick") << QByteArray("/\"$`") << QByteArray(R"("/\\"\\$\\`")");
    QTest::newRow("backslash") << QByteArray(R"(/a\b)") << QByteArray(R"("/a\\\\b")");
    QTest::newRow("percent") << QByteArray("/50%f") << QByteArray("\"/50%%f\"");
    QTest::newRow("line break") << QByteArray("/a\nExec=b") << QByteArray(R"("/a\nExec=b")");
}

void DesktopShortcutTest::quotes_any_program()
{
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, command);
    const QList<QByteArray> lines = shortcutText(u"KiV Mp3"_s, target, {}).split('\n');
    QVERIFY(lines.contains("Exec=" + command));
    QVERIFY(lines.contains("Name=KiV Mp3"));
}

void DesktopShortcutTest::makes_an_executable_file()
{
    const TestFolder desktop;
    QVERIFY(createDesktopShortcut(desktop.path() + u'\\', u"KiV Mp3"_s, AppFilePath()));
    QVERIFY(createDesktopShortcut(desktop.path(), u"KiV Mp3"_s, AppFilePath()));
    const QString file = desktop.hostPath() + u"/KiV Mp3.desktop"_s;
    QVERIFY(QFileInfo(file).isExecutable());
    QVERIFY(desktop.bytesOf(u"KiV Mp3.desktop"_s).contains("\nIcon=" + skinsFolder().toUtf8() + "/icon-128.png\n"));
    const QString validator = QStandardPaths::findExecutable(u"desktop-file-validate"_s);
    if (validator.isEmpty())
        QSKIP("desktop-file-validate is not installed");
    QCOMPARE(QProcess::execute(validator, {file}), 0);
}

void DesktopShortcutTest::fails_quietly()
{
    const TestFolder desktop;
    QVERIFY(shortcutText(u"a"_s, "/\xFF", {}).isEmpty());
    QVERIFY(!createDesktopShortcut(desktop.path(u"missing"_s), u"KiV Mp3"_s, u"/p"_s));
    QVERIFY(DesktopFolderPath().startsWith(u"z:\\"_s));
}

QTEST_GUILESS_MAIN(DesktopShortcutTest)
#include "tst_desktop_shortcut.moc"
