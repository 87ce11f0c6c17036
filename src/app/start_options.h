// SPDX-License-Identifier: GPL-3.0-or-later
// What the program's arguments ask for, known before there is an application: an answer in the terminal, or a start.
#pragma once

#include <QByteArray>

#include <functional>
#include <optional>
#include <span>
#include <vector>

struct StartOptions {
    /// Serve: the session bus says what to play.
    enum class Action { Play, Serve, ShowHelp, ShowVersion, ListSkins, Refuse };

    Action action = Action::Play;
    QByteArray refusal;             // Why, in one line.
    std::optional<QByteArray> file; // As the shell gave it.
    QByteArray skin;                // The name or the folder of the skin for this run; "" for none.
    std::vector<char *> toolkit;    // What Qt is to see: the program's name and Qt's own options.
};

using FileTest = std::function<bool(const QByteArray &name)>;

/// Sorts the arguments, the program's name among them. An argument that begins with "-" is a file if there is one of
/// that name; what follows "--" always is. There is one file at most.
StartOptions readStartOptions(std::span<char *const> arguments, const FileTest &isThere);

/// Does in the terminal what any action but a start asks for: help and version on stdout, an error on stderr. Gives the
/// status to exit with.
int answerInTerminal(const StartOptions &options);
