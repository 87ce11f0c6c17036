// SPDX-License-Identifier: GPL-3.0-or-later
// The start of the program: answers that need no window, the application, the engine, and then the player.
#include "app/program.h"
#include "app/start_options.h"
#include "app/version.h"
#include "controls/accessibility.h"
#include "controls/fonts.h"
#include "controls/skin_style.h"
#include "platform/entries.h"
#include "platform/processes.h"
#include "platform/terminal.h"
#include "playback/engine_choice.h"
#include "settings/skin_store.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;

namespace
{
// The player places its own windows, which only X11 allows: it is preferred where both are there.
void preferX11()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

// The windows are small: a picture of one goes to the X server with the request itself. In shared memory the server
// would have to report after each painting that it has read it, which wakes the player up twice as often.
void paintWithoutSharedMemory()
{
    if (!qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM"))
        qputenv("QT_XCB_NO_MITSHM", "1");
}

// Asked for a bus that is in neither place, now or when one has gone away, the bus library would start one, which takes
// longer than the player does. An address with the number of one bus would keep the player from the next one there.
void settleBusAddress()
{
    const QString socket = qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s;
    QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (address.isEmpty())
        address = QFile::exists(socket) ? u"unix:path="_s + socket : u"disabled:"_s;
    if (address.contains(u",guid="_s)) // Few have one: no start pays for the expression.
        address.remove(QRegularExpression(u",guid=[0-9a-f]+"_s));
    qputenv("DBUS_SESSION_BUS_ADDRESS", QFile::encodeName(address));
}

} // namespace

int main(int argc, char *argv[])
{
    StartOptions options = readStartOptions({argv, static_cast<std::size_t>(argc)}, hostEntryExists);
    const bool isService = options.action == StartOptions::Action::Serve;
    if (options.action != StartOptions::Action::Play && !isService)
        return answerInTerminal(options);
    qSetMessagePattern(u"kiv-mp3: %{if-category}%{category}: %{endif}%{message}"_s);
    outliveReaders();
    preferX11();
    paintWithoutSharedMemory();
    settleBusAddress();
    QApplication::setStyle(new SkinStyle);
    std::optional<MissingDisplayHandler> displayHandler(std::in_place);
    int toolkitCount = static_cast<int>(options.toolkit.size());
    options.toolkit.push_back(nullptr);
    const QApplication application(toolkitCount, options.toolkit.data());
    displayHandler.reset();
    QApplication::setApplicationName(programName());
    QApplication::setDesktopFileName(DesktopApplication::id());
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setLayoutDirection(Qt::LeftToRight); // As the pictures of the windows are.
    QApplication::setFont(fonts::font(fonts::Face::Arial, 13));
    installAccessibility();

    const QString skin = QFile::decodeName(options.skin);
    if (!skin.isEmpty() && !findSkin(skin)) {
        printError("there is no skin \"" + options.skin + "\"; kiv-mp3 --skins lists them");
        return WrongUse;
    }

    EngineChoice engine;
    engine.deferUntilShown();
    Program program(engine, skin);
    QObject::connect(&program.mainWindow(), &SkinWindow::firstPainted, &engine, &EngineChoice::release);
    if (!(isService ? program.startByBus() : program.start(options.file ? commandLineText(*options.file) : QString())))
        return Fine;
    // Before this a signal ends the program as usual: there is no loop yet to leave.
    onEndingSignals(&program, [&program] { program.mainWindow().close(); });
    return QApplication::exec();
}
