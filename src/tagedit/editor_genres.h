// SPDX-License-Identifier: GPL-3.0-or-later
// The tag editor's own genres: in the order of its list, each with the number it writes. Some names and numbers differ
// from those of ID3v1 (choosing "Jazz" writes 146).
#pragma once

#include <array>
#include <cstdint>

struct EditorGenre {
    const char *name;
    std::uint8_t number;
};

constexpr std::uint8_t noGenreNumber = 255;
constexpr int noGenrePosition = -1;

extern const std::array<EditorGenre, 149> editorGenres;

/// The position of the first genre with that number; noGenrePosition when there is none.
int editorGenrePosition(std::uint8_t number);

/// The number of the genre at a position; noGenreNumber for a position outside the list.
std::uint8_t editorGenreNumber(int position);
