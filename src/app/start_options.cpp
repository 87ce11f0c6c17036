// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/start_options.h"

#include "app/version.h"
#include "base/texts.h"
#include "platform/terminal.h"
#include "settings/skin_store.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace
{
constexpr char help[] =
    "Usage: kiv-mp3 [OPTION]... [FILE]\n"
    "Plays the songs of a folder. With FILE, plays that song at once; its folder becomes the music folder.\n"
    "FILE is a name or an address that begins with file://.\n"
    "There is one player for each user: a second one ends at once.\n"
    "\n"
    "  -h, --help     show this help\n"
    "  -v, --version  show the version\n"
    "      --skin S   wear the skin S this time: its name, or its folder\n"
    "      --skins    list the skins\n"
    "      --service  wait for the session bus to say what to play; for its service file\n"
    "  --             what follows is a file, even if its name begins with \"-\"\n"
    "\n"
    "Options of the Qt toolkit, such as -platform and -display, are understood too.\n"
    "\n"
    "Environment:\n"
    "  KIV_MP3_HOME   folder of settings and play lists (else $XDG_DATA_HOME/kiv-mp3)\n"
    "  KIV_MP3_SKINS  folder of pictures used in place of the player's own\n"
    "  KIV_MP3_SOUND  \"null\": play to nobody; \"pcm:FILE\": record into FILE\n"
    "\n"
    "Exit status: 0 fine, also for a second player; 1 cannot start, as without a display; 2 wrong use.\n";

// Qt's own options: it takes them with one dash or two.
constexpr std::array<std::string_view, 16> toolkitOptionsWithValue = {
    "display",         "geometry",           "icon",          "name",
    "platform",        "platformpluginpath", "platformtheme", "plugin",
    "qwindowgeometry", "qwindowicon",        "qwindowtitle",  "session",
    "style",           "stylesheet",         "title",         "visual"};
constexpr std::array<std::string_view, 7> toolkitOptions = {"dograb",  "nograb",      "qdebug",     "qdevel",
                                                            "reverse", "testability", "widgetcount"};
constexpr std::array<std::string_view, 3> toolkitOptionsWithEquals = {"qmljsdebugger=", "style=", "stylesheet="};

bool isOneOf(const auto &options, std::string_view option)
{
    return std::find(options.begin(), options.end(), option) != options.end();
}

// How many of the arguments, from this one on, are an option of Qt's and its value; 0 for anything else.
std::size_t toolkitWords(std::string_view argument)
{
    argument.remove_prefix(argument.starts_with("--") ? 2 : 1);
    if (isOneOf(toolkitOptionsWithValue, argument))
        return 2;
    const bool isWhole = isOneOf(toolkitOptions, argument);
    return isWhole || isOneOf(toolkitOptionsWithEquals, argument.substr(0, argument.find('=') + 1)) ? 1 : 0;
}

// What is answered, whatever else is asked for.
std::optional<StartOptions::Action> answerTo(std::string_view argument)
{
    if (argument == "--help" || argument == "-h")
        return StartOptions::Action::ShowHelp;
    if (argument == "--version" || argument == "-v")
        return StartOptions::Action::ShowVersion;
    if (argument == "--skins")
        return StartOptions::Action::ListSkins;
    return std::nullopt;
}

// Only the first error is reported.
void refuse(StartOptions &options, const QByteArray &why)
{
    options.action = StartOptions::Action::Refuse;
    if (options.refusal.isEmpty())
        options.refusal = why;
}

void takeSkin(StartOptions &options, const QByteArray &skin)
{
    if (skin.isEmpty())
        refuse(options, "--skin needs the name of a skin or its folder; kiv-mp3 --skins lists the skins");
    options.skin = skin;
}

void takeFile(StartOptions &options, const QByteArray &file)
{
    if (options.file)
        refuse(options, "there is one FILE at most; a name with blanks needs quotation marks");
    options.file = file;
}

constexpr int columnWidth = 20;

// A line a skin, the chosen one marked.
QString listOfSkins()
{
    char name[] = "kiv-mp3";
    std::array<char *, 2> arguments = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, arguments.data()); // Knows where the program's own files are.
    const QString chosen = chosenSkin().isEmpty() ? firstSkin().name : chosenSkin();
    QString list;
    for (const SkinPlace &skin : skinsThere()) {
        const QString mark = skin.name == chosen ? u"*"_s : u" "_s;
        const QString line = u"%1 %2 %3  %4"_s.arg(mark, skin.name.leftJustified(columnWidth),
                                                   skin.title.leftJustified(columnWidth), skin.folder);
        list += inOneLine(line) + u'\n';
    }
    return list;
}
} // namespace

StartOptions readStartOptions(std::span<char *const> arguments, const FileTest &isThere)
{
    using Action = StartOptions::Action;
    StartOptions options;
    options.toolkit.assign(arguments.begin(), arguments.begin() + std::min<std::size_t>(arguments.size(), 1));
    bool onlyFiles = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (onlyFiles || argument.size() < 2 || argument.front() != '-')
            takeFile(options, arguments[i]);
        else if (argument == "--")
            onlyFiles = true;
        else if (const auto answer = answerTo(argument))
            return {*answer, {}, {}, {}, {}};
        else if (argument == "--skin")
            takeSkin(options, ++i < arguments.size() ? arguments[i] : "");
        else if (argument.starts_with("--skin="))
            takeSkin(options, arguments[i] + argument.find('=') + 1);
        else if (argument == "--service")
            options.action = options.action == Action::Refuse ? Action::Refuse : Action::Serve;
        else if (const std::size_t words = toolkitWords(argument); words > 0) {
            const std::size_t end = std::min(i + words, arguments.size());
            options.toolkit.insert(options.toolkit.end(), arguments.begin() + i, arguments.begin() + end);
            i = end - 1;
        } else if (isThere(arguments[i]))
            takeFile(options, arguments[i]);
        else
            refuse(options, "unknown option \"" + QByteArray(arguments[i]) + "\"; kiv-mp3 --help lists the known ones");
    }
    return options;
}

int answerInTerminal(const StartOptions &options)
{
    switch (options.action) {
    case StartOptions::Action::ShowHelp:
        return printAnswer(help);
    case StartOptions::Action::ShowVersion:
        return printAnswer("kiv-mp3 " + versionText().toUtf8() + '\n');
    case StartOptions::Action::ListSkins:
        return printAnswer(listOfSkins().toLocal8Bit());
    default:
        printError(options.refusal);
        return WrongUse;
    }
}
