// SPDX-License-Identifier: GPL-3.0-or-later
// What the program says in the terminal it was started from, and the status it ends with.
#pragma once

#include <QByteArray>

enum ExitStatus { Fine = 0, CannotStart = 1, WrongUse = 2 };

/// Prints a text on stdout; complains when that is full or closed. Gives the status to exit with.
ExitStatus printAnswer(const QByteArray &text);

/// Prints "kiv-mp3: " and the text, made one line, on stderr.
void complain(const QByteArray &text);

/// While one lives, what Qt has to say is kept back, for it is about the displays that it tries. When Qt finds none and
/// would abort, the program ends with one line and a status instead.
class DisplaySearch
{
public:
    DisplaySearch();
    ~DisplaySearch();
    DisplaySearch(const DisplaySearch &) = delete;
    DisplaySearch &operator=(const DisplaySearch &) = delete;
};
