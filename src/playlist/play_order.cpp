// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlist/play_order.h"

#include <algorithm>
#include <limits>

namespace
{
// Even with one entry of eleven left to draw, missing it this often does not happen.
constexpr int mostDraws = 1000;
} // namespace

int nextInOrder(int selected, int count, bool nextIsEmpty)
{
    return selected == count - 1 || nextIsEmpty ? 0 : selected + 1;
}

int RandomIndex(int n, const UniformSource &random)
{
    return n <= 0 ? 0 : std::clamp(static_cast<int>(random() * n), 0, n - 1);
}

std::optional<int> RandomOrder::next(int count)
{
    for (int draw = 0; draw < mostDraws; ++draw) {
        const int index = RandomIndex(count - 1, m_random);
        if (RecentCount < std::numeric_limits<std::int16_t>::max())
            ++RecentCount;
        const auto key = static_cast<std::int16_t>(index);
        if (!isRecent(key)) {
            remember(key);
            return index;
        }
    }
    return std::nullopt;
}

bool RandomOrder::isRecent(std::int16_t index) const
{
    return std::find(RecentRandom.begin(), RecentRandom.end(), index) != RecentRandom.end();
}

void RandomOrder::remember(std::int16_t index)
{
    if (RecentCount >= std::ssize(RecentRandom))
        RecentCount = 1;
    RecentRandom[static_cast<std::size_t>(RecentCount - 1)] = index;
}
