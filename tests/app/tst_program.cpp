// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the player and its end.
#include "app/program.h"
#include "platform/folders.h"
#include "platform/terminal.h"
#include "settings/settings_store.h"
#include "support/fake_engine.h"
#include "support/test_files.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{
bool isShown(const QString &name)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [&](const QWidget *window) { return window->objectName() == name && window->isVisible(); });
}

struct Stand {
    FakeEngine engine;
    Program program{engine};
};
} // namespace

class ProgramTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }
    void init()
    {
        ensureSettingsFolder();
        removeFile(paths::settingsFile);
        removeFile(paths::sideFile);
    }

    void theBarFillsIn800Steps()
    {
        for (const int width : {372, 1}) {
            QCOMPARE(splashStep(399, width).status, u"Loading Settings..."_s);
            QCOMPARE(splashStep(400, width).status, u"Loading Orvel..."_s);
            QCOMPARE(splashStep(800, width).fraction, 1.0);
        }
    }

    void aSongOfTheCommandLinePlaysAtOnce()
    {
        const TestFolder folder;
        const QString song = folder.makeFile(u"My Song.mp3"_s);
        Stand stand;
        stand.engine.takeCalls();
        const QObject context;
        bool splashSeen = false;
        QTimer::singleShot(0, &context, [&] { splashSeen = isShown(u"Splash"_s); });
        QVERIFY(stand.program.start(commandLineText(folder.hostPath().toUtf8() + "/My Song.mp3")));
        QCOMPARE(stand.engine.takeCalls(), QStringList({u"FileName "_s + song, u"Play"_s}));
        const Mp3Frm &window = stand.program.mainWindow();
        QVERIFY(window.isVisible() && !splashSeen);
        QCOMPARE(window.Label7.Caption(), u"    My Song.mp3"_s);
        QVERIFY(window.Timer1.Enabled() && window.Timer4.Enabled());
        QCOMPARE(window.File1.Path(), folder.path() + u'\\');
        QCOMPARE(window.File1.items(), QStringList(u"My Song.mp3"_s));
    }

    void aBareTextLosesItsEnds()
    {
        for (const auto &[text, path] : {std::pair(u"C:\\M\\Song.mp3"_s, u":\\M\\Song.mp"_s), {u"x"_s, u""_s}}) {
            Stand stand;
            stand.engine.takeCalls();
            QVERIFY(stand.program.start(text));
            QCOMPARE(stand.engine.takeCalls().value(0), u"FileName "_s + path);
        }
    }

    void withoutASongTheSplashComesFirst()
    {
        Stand stand;
        const QObject context;
        bool splashFirst = false;
        QTimer::singleShot(0, &context,
                           [&] { splashFirst = isShown(u"Splash"_s) && !stand.program.mainWindow().isVisible(); });
        QVERIFY(stand.program.start({}));
        QVERIFY(splashFirst && !isShown(u"Splash"_s) && stand.program.mainWindow().isVisible());
        QVERIFY(!stand.program.mainWindow().Timer1.Enabled());
    }

    void aSecondPlayerEndsUnseen()
    {
        const Stand first;
        Stand stand;
        stand.engine.takeCalls();
        QVERIFY(!stand.program.start(u"\"c:\\Song.mp3\""_s));
        QVERIFY(!stand.program.mainWindow().isVisible());
        QCOMPARE(stand.engine.takeCalls(), QStringList());
    }

    void everyWayOutEndsTheProgram()
    {
        for (const bool byExit : {true, false}) {
            Stand stand;
            QVERIFY(stand.program.start(u"\"c:\\Song.mp3\""_s));
            QTimer::singleShot(0, &stand.program, [&] {
                if (byExit)
                    stand.program.mainWindow().Label6.press();
                else
                    stand.program.mainWindow().close();
            });
            QTimer::singleShot(5000, &stand.program, [] { QCoreApplication::exit(1); }); // Too late.
            QCOMPARE(QApplication::exec(), 0);
            QCOMPARE(stand.engine.takeCalls().first(2), QStringList({u"FileName c:\\Song.mp3"_s, u"Play"_s}));
        }
    }
};

QTEST_MAIN(ProgramTest)
#include "tst_program.moc"
