#include "kxgui/layers/LayerFilterExpression.h"

#include "kxgui/layers/LayerFilterTree.h"

#include <gtest/gtest.h>

#include <string>

using namespace kx::layers;

namespace {

T_LAYER_DATA layer(const wchar_t* name, int color = 7) {
    T_LAYER_DATA row;
    row.name = name;
    row.color = OdCmColor::byIndex(color);
    return row;
}

std::wstring usual(const wchar_t* text) { return filterText(LayerFilterExpression(text).rows()); }

} // namespace

TEST(LayerFilterExpression, TheUsualFormComesBackAsItIs) {
    const wchar_t* const whole =
        L"USED==\"TRUE\" AND VPOVERRIDES==\"FALSE\" AND NAME==\"A*\" AND OFF==\"False\" AND FROZEN==\"True\" "
        L"AND "
        L"LOCKED==\"True\" AND COLOR==\"10\" AND LINETYPE==\"DASHED\" AND LINEWEIGHT==\"0.18\" AND "
        L"PLOTTABLE==\"True\" AND NEWVPFROZEN==\"True\" OR NAME!=\"B*\" OR DESCRIPTION==\"say \"\"so\"\"\"";
    const LayerFilterExpression expression(whole);
    ASSERT_TRUE(expression.understood());
    ASSERT_EQ(expression.rows().size(), 3u);
    EXPECT_EQ(expression.rows()[0].size(), 11u);
    EXPECT_EQ(expression.rows()[2][0].value, L"say \"so\"");
    EXPECT_EQ(filterText(expression.rows()), whole);
    EXPECT_TRUE(expression.asksForUsage() && expression.asksForViewport());
}

TEST(LayerFilterExpression, FilesAreReadGenerously) {
    EXPECT_EQ(usual(L"  ( name = 'a*' )and(On==YES)"), L"NAME==\"a*\" AND OFF==\"False\"");
    EXPECT_EQ(usual(L"OFF==\"true\""), L"OFF==\"True\"");
    EXPECT_EQ(usual(L"OFF!=\"true\" && thawed==1"), L"OFF==\"False\" AND FROZEN==\"False\"");
    EXPECT_EQ(usual(L"FROZEN==\"*\" AND NAME==\"a\""), L"NAME==\"a\"") << "any state is no condition";
    EXPECT_EQ(usual(L"NOT (NAME==\"a\" AND COLOR==\"1\" OR LOCKED==\"True\")"),
              L"NAME!=\"a\" AND LOCKED==\"False\" OR COLOR!=\"1\" AND LOCKED==\"False\"");
    EXPECT_EQ(usual(L"NAME==a* AND (COLOR==1 OR COLOR==2)"),
              L"NAME==\"a*\" AND COLOR==\"1\" OR NAME==\"a*\" AND COLOR==\"2\"");
    EXPECT_TRUE(LayerFilterExpression(L"").fits(layer(L"x"), false));
}

TEST(LayerFilterExpression, WhatCantBeUnderstoodKeepsItsTextAndSelectsNothing) {
    std::wstring deep(5000, L'('), nots, product = L"NAME==a";
    for (int i = 0; i < 200; ++i)
        nots += L"NOT ";
    for (int i = 0; i < 20; ++i)
        product += L" AND (NAME==a OR NAME==b)";
    for (const std::wstring& text :
         {std::wstring(L"SIZE==\"1\""), std::wstring(L"NAME"), std::wstring(L"NAME==\"a"),
          std::wstring(L"NAME==\"a\" AND"), std::wstring(L"NAME==\"a\" COLOR==\"1\""),
          std::wstring(L"LOCKED==\"perhaps\""), deep, nots + L"NAME==a", product,
          std::wstring(LayerFilterExpression::kLongest + 1, L' ') + L"x"}) {
        const LayerFilterExpression expression(text);
        EXPECT_FALSE(expression.problem().empty());
        EXPECT_EQ(expression.text(), text);
        EXPECT_TRUE(expression.rows().empty());
        EXPECT_FALSE(expression.fits(layer(L"a"), true));
    }
    // A state that is neither is no fault, but no layer has it.
    EXPECT_FALSE(LayerFilterExpression(L"LOCKED!=\"*\"").fits(layer(L"a"), true));
}

TEST(LayerFilterExpression, EveryPropertyIsAskedOfTheRow) {
    T_LAYER_DATA row = layer(L"plan|Walls", 30);
    row.xref = row.locked = row.vpFrozen = true;
    row.on = row.plot = false;
    row.linetype = L"DASHED";
    row.lineWeight = OdDb::kLnWt018;
    row.transparency = 30;
    row.plotStyle = L"Style 1";
    row.description = L"outer walls";
    row.current = true;
    row.vp.color = OdCmColor::byIndex(1);
    row.vp.transparency = OdCmTransparency::byPercent(60);
    for (const wchar_t* text : {L"NAME==\"*|w*\"",
                                L"USED==\"TRUE\"",
                                L"ON==\"False\"",
                                L"OFF==\"1\"",
                                L"FROZEN==\"False\"",
                                L"LOCKED==\"True\"",
                                L"COLOR==\"30\"",
                                L"COLOR==\"3#\"",
                                L"COLOR!=\"1\"",
                                L"LINETYPE==\"dash*\"",
                                L"LINEWEIGHT==\"0.18\"",
                                L"LINEWEIGHT==\"0.18 mm\"",
                                L"LINEWEIGHT==\"0.1*\"",
                                L"TRANSPARENCY==\"30\"",
                                L"TRANSPARENCY==\"~9#\"",
                                L"PLOTSTYLE==\"Style*\"",
                                L"PLOTTABLE==\"False\"",
                                L"NEWVPFROZEN==\"False\"",
                                L"VPFROZEN==\"True\"",
                                L"VPOVERRIDES==\"TRUE\"",
                                L"XREF==\"True\"",
                                L"XREF==\"pl*\"",
                                L"CURRENT==\"True\"",
                                L"VPCOLOR==\"1\"",
                                L"VPCOLOR!=\"30\"",
                                L"VPTRANSPARENCY==\"60%\"",
                                L"VPLINETYPE==\"DASH*\"",
                                L"VPLINEWEIGHT==\"0.18\"",
                                L"VPPLOTSTYLE==\"Style*\"",
                                L"DESCRIPTION==\"*wall*\""}) {
        EXPECT_TRUE(LayerFilterExpression(text).fits(row, true))
            << "row of length " << std::wstring(text).size();
        EXPECT_FALSE(LayerFilterExpression(std::wstring(L"NOT ") + text).fits(row, true));
    }
    row.color = OdCmColor::byRgb(255, 128, 0);
    row.lineWeight = OdDb::kLnWtByLwDefault;
    for (const wchar_t* text : {L"COLOR==\"255,128,0\"", L"COLOR==\"RGB:255,128,0\"", L"COLOR==\"255,*\"",
                                L"LINEWEIGHT==\"Default\"", L"LINEWEIGHT==\"-3\""})
        EXPECT_TRUE(LayerFilterExpression(text).fits(row, true));
    row.bookColor = L"RAL CLASSIC$RAL 1000";
    EXPECT_TRUE(LayerFilterExpression(L"COLOR==\"RAL*\"").fits(row, true));
    EXPECT_TRUE(LayerFilterExpression(L"COLOR==\"red\"").fits(layer(L"a", 1), true));
}

TEST(LayerFilterExpression, CellsOfTheEditorGoThereAndBack) {
    FilterRow row =
        LayerFilterExpression(L"NAME==\"A*\" AND NAME!=\"AB*\" AND OFF==\"True\" AND COLOR!=\"1\"").rows()[0];
    EXPECT_EQ(filterCellText(row, FilterProperty::name), L"NAME==\"A*\" AND NAME!=\"AB*\"");
    EXPECT_EQ(filterCellText(row, FilterProperty::on), L"False");
    EXPECT_EQ(filterCellText(row, FilterProperty::color), L"!=1");
    EXPECT_EQ(filterCellText(row, FilterProperty::locked), L"");
    const FilterRow before = row;
    for (int i = 0; i < kFilterProperties; ++i)
        EXPECT_TRUE(setFilterCell(row, static_cast<FilterProperty>(i),
                                  filterCellText(before, static_cast<FilterProperty>(i))));
    EXPECT_EQ(row, before);
    EXPECT_TRUE(setFilterCell(row, FilterProperty::name, L" B* "));
    EXPECT_TRUE(setFilterCell(row, FilterProperty::locked, L"yes"));
    EXPECT_TRUE(setFilterCell(row, FilterProperty::color, L""));
    EXPECT_EQ(filterText({row}), L"NAME==\"B*\" AND OFF==\"True\" AND LOCKED==\"True\"");
    EXPECT_FALSE(setFilterCell(row, FilterProperty::locked, L"perhaps"));
    EXPECT_FALSE(setFilterCell(row, FilterProperty::name, L"COLOR==\"1\""));
    EXPECT_EQ(filterText({row}), L"NAME==\"B*\" AND OFF==\"True\" AND LOCKED==\"True\"");
}

TEST(LayerFilterExpression, OlderFiltersAskByPatterns) {
    tv::dwg::LayerFilter::Patterns patterns;
    patterns.name = L"A*";
    patterns.color = L"1";
    EXPECT_TRUE(expressionOf(patterns).fits(layer(L"ab", 1), false));
    EXPECT_FALSE(expressionOf(patterns).fits(layer(L"ab", 2), false));
    patterns.states = 3;
    EXPECT_FALSE(expressionOf(patterns).understood());
    EXPECT_FALSE(expressionOf(patterns).fits(layer(L"ab", 1), false));
}
