// Sets of rows against the plainest set there is.
#include "platform/toolkit/RowSet.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using tv::ui::RowSet;

TEST(RowSet, HoldsWhatASetHolds) {
    std::mt19937 random(11);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    RowSet rows;
    std::set<int> plain;
    for (int i = 0; i < 20'000; ++i) {
        const int first = below(60), last = first + below(8) - 1; // now and then empty
        switch (below(5)) {
        case 0:
            rows.erase(first, last);
            for (int row = first; row <= last; ++row)
                plain.erase(row);
            break;
        case 1:
            if (below(20) > 0) break;
            rows.invert(66);
            for (int row = 0; row < 66; ++row)
                if (!plain.insert(row).second) plain.erase(row);
            break;
        case 2: { // rows come or go
            const int by = below(2) ? below(3) : -below(3);
            rows.shift(first, by);
            std::set<int> moved;
            for (const int row : plain)
                if (row < first)
                    moved.insert(row);
                else if (row >= first - by)
                    moved.insert(row + by);
            plain = std::move(moved);
            rows.clip(66);
            plain.erase(plain.lower_bound(66), plain.end());
            break;
        }
        default:
            rows.insert(first, last);
            for (int row = first; row <= last; ++row)
                plain.insert(row);
        }
        ASSERT_EQ(rows.rows(), std::vector<int>(plain.begin(), plain.end()));
        ASSERT_EQ(rows.count(), static_cast<std::int64_t>(plain.size()));
        ASSERT_EQ(rows.contains(first), plain.count(first) > 0);
        ASSERT_EQ(rows, RowSet(rows.rows())) << "one form for one set";
    }
}

TEST(RowSet, GoesAsFarAsNumbersGo) {
    constexpr int lowest = std::numeric_limits<int>::min(), highest = std::numeric_limits<int>::max();
    RowSet rows{highest, lowest, highest - 1, 0};
    rows.insert(lowest, -1);
    rows.insert(1, highest);
    EXPECT_EQ(rows.ranges(), (std::vector<RowSet::Range>{{lowest, highest}}));
    EXPECT_EQ(rows.count(), std::int64_t(1) << 32);
    EXPECT_EQ(rows.rows(2), (std::vector<int>{lowest, lowest + 1}));
    rows.erase(highest);
    rows.erase(lowest);
    EXPECT_FALSE(rows.contains(highest));
    rows.clip(10);
    EXPECT_EQ(rows, RowSet::range(0, 9));
    rows.invert(highest);
    EXPECT_EQ(rows.last(), highest - 1);
    rows.clip(-3);
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(rows.first(), -1);
}

} // namespace
