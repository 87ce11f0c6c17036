// SPDX-License-Identifier: GPL-3.0-or-later
// The names of the ID3v1 genre numbers, after an empty entry for "no genre". The tag editor has a list of its own.
#pragma once

#include <QString>

constexpr int genreEntryCount = 149;

/// The list's entry at a position: 0 is the empty text, n + 1 the name of genre n (0 to 147); "" beyond the list.
QString genreText(int position);

/// The position of a genre number in the list: 0, the empty entry, for numbers without a name.
int genrePosition(int genre);
