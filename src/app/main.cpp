// The start of the program: options that need no window, the application, the engine, and then the player.
#include "app/program.h"
#include "app/version.h"
#include "controls/accessibility.h"
#include "controls/fonts.h"
#include "controls/skin_style.h"
#include "platform/command_line.h"
#include "platform/file_names.h"
#include "playback/mpv_engine.h"

#include <QApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{
constexpr char usage[] = "Usage: kiv-mp3 [FILE]\n"
                         "Plays MP3 files. With FILE, plays it at once.\n\n"
                         "  --help     shows this text\n"
                         "  --version  shows the version\n";

// Answers an option that needs no window. False when there is none.
bool answersOption(const char *argument)
{
    const QByteArrayView option(argument);
    if (option == "--help")
        std::fputs(usage, stdout);
    else if (option == "--version")
        std::printf("kiv-mp3 %s\n", qPrintable(versionText()));
    else
        return false;
    return true;
}

// The player places its own windows, which only X11 allows: it is preferred where both are there.
void preferX11()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}
// The windows are small: a picture of one goes to the X server with the request itself. In shared memory the server
// would have to tell after each painting that it has read it, which wakes the player up twice as often.
void paintWithoutSharedMemory()
{
    if (!qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM"))
        qputenv("QT_XCB_NO_MITSHM", "1");
}
// The arguments that Qt has left, the bytes of odd file names kept.
QStringList argumentsOf(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments += textFromBytes(argv[i]);
    return arguments;
}
} // namespace

int main(int argc, char *argv[])
{
    if (argc == 2 && answersOption(argv[1]))
        return 0;
    preferX11();
    paintWithoutSharedMemory();
    QApplication::setStyle(new SkinStyle);
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"KiV Mp3"_s);
    QApplication::setDesktopFileName(u"kiv-mp3"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(fonts::font(fonts::Face::Arial, 13));
    installAccessibility();

    MpvEngine engine;
    engine.holdUntilShown(); // The sound library takes longer to load than the window to show.
    Program program(engine);
    QObject::connect(&program.mainWindow(), &SkinWindow::firstPainted, &engine, &MpvEngine::release);
    return program.start(commandLineText(argumentsOf(argc, argv))) ? QApplication::exec() : 0;
}
