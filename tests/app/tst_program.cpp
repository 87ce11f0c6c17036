// The start of the player and its end.
#include "app/program.h"
#include "platform/command_line.h"
#include "platform/folders.h"
#include "settings/setting_paths.h"
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

    void the_bar_fills_in_800_steps()
    {
        for (const int width : {372, 1}) {
            QCOMPARE(splashStep(399, width).status, u"Loading Settings..."_s);
            QCOMPARE(splashStep(400, width).status, u"Loading Orvel..."_s);
            QCOMPARE(splashStep(800, width).fraction, 1.0);
        }
    }

    void a_song_of_the_command_line_plays_at_once()
    {
        const TestFolder folder;
        const QString song = folder.makeFile(u"My Song.mp3"_s);
        FakeEngine engine;
        Program program(engine);
        engine.takeCalls();
        const QObject context;
        bool splashSeen = false;
        QTimer::singleShot(0, &context, [&] { splashSeen = isShown(u"Splash"_s); });
        QVERIFY(program.start(commandLineText({folder.hostPath() + u"/My Song.mp3"_s})));
        QCOMPARE(engine.takeCalls(), QStringList({u"FileName "_s + song, u"Play"_s}));
        const Mp3Frm &window = program.mainWindow();
        QVERIFY(window.isVisible() && !splashSeen);
        QCOMPARE(window.Label7.Caption(), u"    My Song.mp3"_s);
        QVERIFY(window.Timer1.Enabled() && window.Timer4.Enabled());
        QCOMPARE(window.File1.Path(), folder.path() + u'\\');
        QCOMPARE(window.File1.items(), QStringList(u"My Song.mp3"_s));
    }

    void a_bare_text_loses_its_ends()
    {
        for (const auto &[text, path] : {std::pair(u"C:\\M\\Song.mp3"_s, u":\\M\\Song.mp"_s), {u"x"_s, u""_s}}) {
            FakeEngine engine;
            Program program(engine);
            engine.takeCalls();
            QVERIFY(program.start(text));
            QCOMPARE(engine.takeCalls().value(0), u"FileName "_s + path);
        }
    }

    void without_a_song_the_splash_comes_first()
    {
        FakeEngine engine;
        Program program(engine);
        const QObject context;
        bool splashFirst = false;
        QTimer::singleShot(0, &context,
                           [&] { splashFirst = isShown(u"Splash"_s) && !program.mainWindow().isVisible(); });
        QVERIFY(program.start({}));
        QVERIFY(splashFirst && !isShown(u"Splash"_s) && program.mainWindow().isVisible());
        QVERIFY(!program.mainWindow().Timer1.Enabled());
    }

    void a_second_player_ends_unseen()
    {
        FakeEngine engine;
        const Program first(engine);
        FakeEngine secondEngine;
        Program second(secondEngine);
        secondEngine.takeCalls();
        QVERIFY(!second.start(u"\"c:\\Song.mp3\""_s));
        QVERIFY(!second.mainWindow().isVisible());
        QCOMPARE(secondEngine.takeCalls(), QStringList());
    }

    void every_way_out_ends_the_program()
    {
        for (const bool byExit : {true, false}) {
            FakeEngine engine;
            Program program(engine);
            QVERIFY(program.start(u"\"c:\\Song.mp3\""_s));
            QTimer::singleShot(0, &program, [&] {
                if (byExit)
                    program.mainWindow().Label6.press();
                else
                    program.mainWindow().close();
            });
            QTimer::singleShot(5000, &program, [] { QCoreApplication::exit(1); }); // Too late.
            QCOMPARE(QApplication::exec(), 0);
        }
    }
};

QTEST_MAIN(ProgramTest)
#include "tst_program.moc"
