// SPDX-License-Identifier: GPL-3.0-or-later
// File names made tidy: one plain text in, one plain text out. Asking for a name and renaming is the windows' work.
#pragma once

#include <QString>

/// Underscores become blanks, words get capitals (CapitalizeWords()), "~" becomes "-", and the first "&" gets a blank
/// on both sides unless a spaced one is there already.
QString CleanName(const QString &text);

/// Lower case throughout, but for the first letter of the text and of each word. Words that begin with "and" and the
/// word "of" stay small. The character after an opening bracket that begins a word is moved 32 codes down, whatever
/// it is: a letter becomes a capital, a digit a control character.
QString CapitalizeWords(const QString &text);
