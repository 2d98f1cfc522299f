#include "platform/host/units/UnitList.h"

#include <gtest/gtest.h>

#include <set>

TEST(UnitList, NamesEveryUnitOfALibraryDifferently) {
    std::vector<int> scales = {99};
    kx::unit::getUnitList(scales, 1);
    ASSERT_EQ(scales.size(), 25u);
    EXPECT_EQ(scales.front(), 0);
    std::vector<int> real;
    kx::unit::getUnitList(real, 0);
    EXPECT_EQ(real.size(), 24u);

    for (const int flag : {0, 1}) {
        std::set<std::wstring> names;
        for (const int id : scales)
            names.insert(kx::unit::getUnitName(id, flag).wstr());
        EXPECT_EQ(names.size(), scales.size()) << flag;
        EXPECT_FALSE(names.contains(L""));
    }
    EXPECT_EQ(kx::unit::getUnitName(1, 0), L"인치");
    EXPECT_EQ(kx::unit::getUnitName(4, 1), L"mm");
    EXPECT_TRUE(kx::unit::getUnitName(25, 0).isEmpty());
    EXPECT_TRUE(kx::unit::getUnitName(-1, 0).isEmpty());
    // Relations that hold by definition, across the two families.
    EXPECT_DOUBLE_EQ(kx::unit::getUnitMetres(3), 5280 * kx::unit::getUnitMetres(2));
    EXPECT_DOUBLE_EQ(kx::unit::getUnitMetres(24), 1609.3472186944375);
    EXPECT_NEAR(kx::unit::getUnitMetres(20) / kx::unit::getUnitMetres(19), 3.26156, 1e-5);
}
