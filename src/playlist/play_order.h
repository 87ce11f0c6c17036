// SPDX-License-Identifier: GPL-3.0-or-later
// Which play list entry comes next, in order or at random. Indexes count from 0; -1 is no selection.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

/// The entry after the selected one; the first after the last one, and also before an empty item or without a
/// selection.
int nextInOrder(int selected, int count, bool nextIsEmpty);

/// A uniform number from 0 up to, not including, 1.
using UniformSource = std::function<double()>;

/// A whole number from 0 to n - 1; 0 for n = 0.
int RandomIndex(int n, const UniformSource &random);

/// The random order's memory, alive as long as the program: a song does not come again while it is remembered.
class RandomOrder
{
public:
    explicit RandomOrder(UniformSource random) : m_random(std::move(random)) {}

    /// An entry other than the last one and the remembered ones, now remembered; nothing when none can be drawn. The
    /// first entry never comes: the tenth place is never written and keeps its 0.
    std::optional<int> next(int count);

private:
    bool isRecent(std::int16_t index) const;
    void remember(std::int16_t index);

    UniformSource m_random;
    std::array<std::int16_t, 10> RecentRandom{}; // The entries drawn last, 16 bits of each.
    std::int16_t RecentCount = 0;                // Counts every draw; where the next entry is kept.
};
