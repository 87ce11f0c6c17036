// SPDX-License-Identifier: GPL-3.0-or-later
// The terminal the program was started from: its command line, what is printed there, and the status it ends with.
#pragma once

#include <QByteArray>
#include <QString>

/// The file among the arguments in quotation marks: one that comes without them from a shell is put in them first. A
/// path in host form, a relative one too, and a file URI become a program path.
QString commandLineText(const QByteArray &file);

enum ExitStatus { Fine = 0, CannotStart = 1, WrongUse = 2 };

/// Prints a text on stdout; an error on stderr when that is full or closed. Gives the status to exit with.
ExitStatus printAnswer(const QByteArray &text);

/// Prints "kiv-mp3: " and the text, made one line, on stderr.
void printError(const QByteArray &text);

/// The message handler for a missing display, while one lives: Qt's messages about the displays that it tries are not
/// shown. When it finds none and would abort, the program ends with one line and a status instead.
class MissingDisplayHandler
{
public:
    MissingDisplayHandler();
    ~MissingDisplayHandler();
    MissingDisplayHandler(const MissingDisplayHandler &) = delete;
    MissingDisplayHandler &operator=(const MissingDisplayHandler &) = delete;
};
