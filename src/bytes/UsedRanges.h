// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace tarsel {

/// Ranges of bytes that something uses. Crafted files have tens of thousands, so a look-up is a binary
/// search.
class UsedRanges {
public:
    void add(std::int64_t start, std::int64_t size) {
        m_ranges.push_back({start, start + size, 0, 0});
        m_isSorted = false;
    }

    /// How many of them the range overlaps: 0, 1, or 2 for several.
    int usersOf(std::int64_t start, std::int64_t size) const {
        sort();
        const auto after = std::ranges::lower_bound(m_ranges, start + size, {}, &Range::start);
        if (after == m_ranges.begin())
            return 0;
        const Range& last = *std::prev(after);
        return int(last.largestEnd > start) + int(last.secondEnd > start);
    }

private:
    struct Range {
        std::int64_t start = 0;
        std::int64_t end = 0;
        std::int64_t largestEnd = 0; ///< of this one and all before it
        std::int64_t secondEnd = 0;  ///< the largest after that
    };

    void sort() const {
        if (m_isSorted)
            return;
        std::ranges::sort(m_ranges, {}, &Range::start);
        std::int64_t largest = 0, second = 0;
        for (Range& range : m_ranges) {
            second = std::max(second, std::min(largest, range.end));
            largest = std::max(largest, range.end);
            range.largestEnd = largest;
            range.secondEnd = second;
        }
        m_isSorted = true;
    }

    mutable std::vector<Range> m_ranges;
    mutable bool m_isSorted = true;
};

} // namespace tarsel
