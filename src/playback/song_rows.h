// SPDX-License-Identifier: GPL-3.0-or-later
// Where the transport goes in a list of songs.
#pragma once

#include <cstdint>

/// The row after row among count songs, around the end; 0 without a choice (-1).
constexpr int nextRow(int row, int count)
{
    return row < count - 1 ? row + 1 : 0;
}

/// The row before row, around the start.
constexpr int previousRow(int row, int count)
{
    return row > 0 ? row - 1 : count - 1;
}

/// Where the advance through the folder goes from index: one past the end first, then to the start.
constexpr std::int32_t advancedIndex(std::int32_t index, int count)
{
    return index == count ? 0 : index + 1;
}
