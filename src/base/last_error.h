// SPDX-License-Identifier: GPL-3.0-or-later
// The program's last recorded error: what an error box shows. What fails records it, a window shows it.
#pragma once

#include <QString>

struct ErrorRecord {
    int number = 0;      // Shown in the title of the error box.
    QString source;      // Who failed, in one word.
    QString description; // What is wrong, for a person.
};

/// Keeps error as the last one.
void recordError(const ErrorRecord &error);

/// The error recorded last; empty before the first.
const ErrorRecord &lastError();

/// "Error - " and the number.
QString errorTitle(const ErrorRecord &error);

/// The source, " - " and the description.
QString errorText(const ErrorRecord &error);
