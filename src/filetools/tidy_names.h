// SPDX-License-Identifier: GPL-3.0-or-later
// File names made tidy, and the name that the name formatter proposes for a file. Texts in, texts out: asking for a
// name and renaming is the windows' work.
#pragma once

#include <QString>

#include <optional>

/// Underscores become blanks, words get capitals (CapitalizeWords()), "~" becomes "-", and the first "&" gets a blank
/// on both sides unless a spaced one is there already.
QString CleanName(const QString &text);

/// Lower case throughout, but for the first letter of the text and of each word. Words that begin with "and" and the
/// word "of" stay small. The character after an opening bracket that begins a word is moved 32 codes down, whatever
/// it is: a letter becomes a capital, a digit a control character.
QString CapitalizeWords(const QString &text);

struct NameProposal {
    QString name;                    // The new name, extension included.
    std::optional<QString> songName; // What follows the first hyphen; nothing when the name holds none.
};

/// The proposal for a file name. The split is at the first hyphen, at the second when there is one, never later.
NameProposal proposeName(const QString &fileName);

/// The name with what stands before and after its first hyphen swapped, its extension kept; nothing without a hyphen.
std::optional<QString> withSidesSwapped(const QString &fileName);
