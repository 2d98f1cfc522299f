#include "platform/text/Collation.h"
#include "platform/text/MessageManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using tv::text::CollationOptions;
using tv::text::Collator;
using Names = std::vector<std::wstring>;

TEST(Collation, DigitsAndCase) {
    Names names{L"Layer10", L"layer2", L"Layer1", L"Layer002"};
    std::sort(names.begin(), names.end(), Collator({.digitsAsNumbers = true, .ignoreCase = false}, 1033));
    EXPECT_EQ(names.front(), L"Layer1");
    EXPECT_EQ(names.back(), L"Layer10");
    std::sort(names.begin(), names.end(), Collator({}, 1033));
    EXPECT_EQ(names, (Names{L"Layer002", L"Layer1", L"Layer10", L"layer2"}));

    const Collator folding({.digitsAsNumbers = false, .ignoreCase = true}, 1033);
    EXPECT_EQ(folding.compare(L"WALL", L"wall"), 0);
    EXPECT_NE(folding.compare(L"resume", L"résumé"), 0);
    EXPECT_LT(Collator({}, 1033).compare(L"wall", L"WALL"), 0);
    EXPECT_LT(folding.compare(L"", L"a"), 0);
}

TEST(Collation, LanguageDecides) {
    // Pinyin order in Chinese, the order of the characters' Korean readings in Korean.
    Names names{L"中", L"阿", L"北"};
    std::sort(names.begin(), names.end(), Collator({}, 2052));
    EXPECT_EQ(names, (Names{L"阿", L"北", L"中"}));
    EXPECT_LT(Collator({}, 1042).compare(L"가", L"A"), 0);
    EXPECT_GT(Collator({}, 1033).compare(L"가", L"A"), 0);

    VORD_MSGFunction::SetCurrentLanguageId(1033);
    const Collator english;
    EXPECT_GT(tv::text::compare(L"가", L"A"), 0);
    VORD_MSGFunction::SetCurrentLanguageId(1042);
    EXPECT_LT(tv::text::compare(L"가", L"A"), 0);
    EXPECT_GT(english.compare(L"가", L"A"), 0);
}

TEST(Collation, SortKeysGiveTheSameOrder) {
    const Names names{L"",
                      L"0",
                      L"a",
                      L"A",
                      L"ä",
                      L"Layer2",
                      L"layer10",
                      L"LAYER2",
                      L"도면층",
                      L"-",
                      std::wstring(500, L'가')};
    for (const bool numeric : {false, true}) {
        for (const bool fold : {false, true}) {
            const Collator order({numeric, fold}, 1042);
            for (const auto& a : names)
                for (const auto& b : names) {
                    auto sign = [](int value) { return (value > 0) - (value < 0); };
                    EXPECT_EQ(sign(order.compare(a, b)), sign(order.sortKey(a).compare(order.sortKey(b))));
                }
        }
    }
}

} // namespace
