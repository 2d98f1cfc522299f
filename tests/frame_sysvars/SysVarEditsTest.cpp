#include "kxgui/sysvars/SysVarRows.h"

#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/Unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kx::sysvar;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class Edits : public testing::Test {
  protected:
    void TearDown() override { getSysVarDlgItems().clear(); }

    Entered enter(SysVarEdits& edits, const wchar_t* name, std::wstring_view text) {
        return edits.enter(edits.indexOf(name), text);
    }
    static std::wstring text(const SysVarEdits& edits, const wchar_t* name) {
        return edits.text(edits.indexOf(name));
    }
    static SysVarEditor editor(const SysVarEdits& edits, const wchar_t* name) {
        return editorOf(edits.entries()[static_cast<std::size_t>(edits.indexOf(name))]);
    }
    std::vector<std::wstring> choices(const SysVarEdits& edits, const wchar_t* name) {
        return choicesOf(edits.entries()[static_cast<std::size_t>(edits.indexOf(name))], database.get());
    }

    tv::host::EmbeddedHost host;
    OdDbDatabasePtr database = host.documentManager()->newDocument()->database();
};

} // namespace

TEST_F(Edits, TextsBecomeStagedValuesAndOneUndoStep) {
    const auto before = database->bytes();
    {
        SysVarEdits edits(database);
        EXPECT_TRUE(enter(edits, L"LUPREC", L" 7 "));
        EXPECT_TRUE(enter(edits, L"LTSCALE", L"2.5"));
        EXPECT_TRUE(enter(edits, L"LIMMAX", L"100,50"));
        EXPECT_TRUE(enter(edits, L"INSBASE", L"1,2"));
        EXPECT_TRUE(enter(edits, L"CECOLOR", L"green"));
        EXPECT_TRUE(enter(edits, L"CELTYPE", L"continuous"));
        EXPECT_TRUE(enter(edits, L"DIMPOST", L"<> mm"));
        EXPECT_TRUE(enter(edits, L"FINDSTRINGS", L"door"));
        EXPECT_EQ(edits.changedCount(), 8);
        EXPECT_EQ(text(edits, L"luprec"), L"7");
        EXPECT_EQ(text(edits, L"INSBASE"), L"1,2,0");
        EXPECT_EQ(text(edits, L"CECOLOR"), L"3");
        EXPECT_EQ(text(edits, L"CELTYPE"), L"Continuous") << "as the drawing spells it";
        EXPECT_EQ(database->bytes(), before) << "nothing is written yet";
        EXPECT_TRUE(edits.commit().empty());
        EXPECT_EQ(edits.changedCount(), 0);
        EXPECT_EQ(text(edits, L"LTSCALE"), L"2.5");
    }
    database->undo();
    EXPECT_EQ(database->bytes(), before);
}

TEST_F(Edits, OutOfRangeIsBroughtInAndNonsenseIsRefused) {
    SysVarEdits edits(database);
    auto said = enter(edits, L"LUPREC", L"99999999999");
    EXPECT_THAT(tv::text::toUtf8(said.notice), HasSubstr("99999999999"));
    EXPECT_EQ(text(edits, L"LUPREC"), L"8");
    EXPECT_FALSE(enter(edits, L"PICKBOX", L"-3").notice.empty());
    EXPECT_EQ(text(edits, L"PICKBOX"), L"0");
    EXPECT_FALSE(enter(edits, L"FILLETRAD", L"-1").notice.empty()) << "0, which is also the present value";
    EXPECT_FALSE(edits.changed(edits.indexOf(L"FILLETRAD")));

    const int changed = edits.changedCount();
    for (const auto& [name, bad] :
         std::vector<std::pair<const wchar_t*, const wchar_t*>>{{L"LUPREC", L"seven"},
                                                                {L"LUPREC", L""},
                                                                {L"LTSCALE", L"0"},
                                                                {L"LTSCALE", L"nan"},
                                                                {L"LTSCALE", L"1e999"},
                                                                {L"CELWEIGHT", L"26"},
                                                                {L"LIMMAX", L"1,2,3"},
                                                                {L"INSBASE", L"1"},
                                                                {L"CECOLOR", L"300"},
                                                                {L"CECOLOR", L"1,2,3"},
                                                                {L"CLAYER", L"none such"},
                                                                {L"CLAYER", L""},
                                                                {L"DIMPOST", L"a\nb"},
                                                                {L"ACADVER", L"AC1015"}}) {
        const std::wstring was = text(edits, name);
        EXPECT_FALSE(enter(edits, name, bad)) << tv::text::toUtf8(name) << " " << tv::text::toUtf8(bad);
        EXPECT_EQ(text(edits, name), was);
    }
    EXPECT_EQ(edits.changedCount(), changed);
}

TEST_F(Edits, ThePresentValueAndResetTakeBackWhatWasStaged) {
    SysVarEdits edits(database);
    const int ltscale = edits.indexOf(L"LTSCALE"), style = edits.indexOf(L"TEXTSTYLE");
    const std::wstring was = edits.text(ltscale), styleWas = edits.text(style);
    EXPECT_TRUE(edits.enter(ltscale, L"3"));
    EXPECT_TRUE(edits.enter(ltscale, was));
    EXPECT_TRUE(edits.enter(style, L"STANDARD"));
    EXPECT_EQ(edits.changedCount(), 0) << "names differ in letter case only";
    EXPECT_TRUE(edits.enter(ltscale, L"3"));
    edits.reset(ltscale);
    edits.reset(style);
    EXPECT_EQ(edits.text(ltscale), was);
    EXPECT_EQ(edits.text(style), styleWas);
    ASSERT_TRUE(edits.enter(ltscale, L"3"));
    EXPECT_TRUE(edits.commit().empty());
    EXPECT_TRUE(edits.enterDefault(ltscale));
    EXPECT_EQ(edits.text(ltscale), L"1");
}

// What only the drawing itself can tell stays staged and is named; the others are written.
TEST_F(Edits, WhatIsRefusedStaysStaged) {
    SysVarEdits edits(database);
    ASSERT_TRUE(enter(edits, L"CPLOTSTYLE", L"No such style"));
    ASSERT_TRUE(enter(edits, L"LTSCALE", L"4"));
    EXPECT_THAT(edits.commit(), ElementsAre(L"CPLOTSTYLE"));
    EXPECT_TRUE(edits.changed(edits.indexOf(L"CPLOTSTYLE")));
    EXPECT_FALSE(edits.changed(edits.indexOf(L"LTSCALE")));
    EXPECT_EQ(text(edits, L"LTSCALE"), L"4");
}

TEST_F(Edits, EditorsFollowTheKindOfValue) {
    SysVarEdits edits(database);
    EXPECT_EQ(editor(edits, L"FILLMODE"), SysVarEditor::toggle);
    EXPECT_THAT(choices(edits, L"FILLMODE"), ElementsAre(L"0", L"1"));
    EXPECT_EQ(editor(edits, L"LUNITS"), SysVarEditor::choice);
    EXPECT_THAT(choices(edits, L"LUNITS"), ElementsAre(L"1", L"2", L"3", L"4", L"5"));
    EXPECT_EQ(choices(edits, L"CELWEIGHT").size(), 27u);
    EXPECT_EQ(editor(edits, L"SORTENTS"), SysVarEditor::text) << "a sum of bits";
    EXPECT_EQ(editor(edits, L"CECOLOR"), SysVarEditor::color);
    EXPECT_EQ(editor(edits, L"CLAYER"), SysVarEditor::record);
    EXPECT_THAT(choices(edits, L"CLAYER"), Contains(L"0"));
    EXPECT_THAT(choices(edits, L"CELTYPE"), Contains(L"Continuous"));
    EXPECT_THAT(choices(edits, L"DIMBLK"), Contains(L"")) << "may be left open";
    EXPECT_EQ(editor(edits, L"LIMMAX"), SysVarEditor::text);
    EXPECT_EQ(editor(edits, L"HANDSEED"), SysVarEditor::none);
}

TEST_F(Edits, WithoutADrawingOnlyTheUsersVariablesAreThere) {
    OdDbDatabasePtr none;
    host.documentManager()->closeDocument(host.documentManager()->currentDocument());
    SysVarEdits edits(none);
    EXPECT_EQ(text(edits, L"LTSCALE"), L"");
    EXPECT_EQ(editor(edits, L"LTSCALE"), SysVarEditor::none);
    EXPECT_FALSE(enter(edits, L"LTSCALE", L"2"));
    EXPECT_TRUE(enter(edits, L"PICKBOX", L"5"));
    EXPECT_TRUE(edits.commit().empty());
    EXPECT_EQ(text(edits, L"PICKBOX"), L"5");
}

TEST_F(Edits, FilterOnlyChangedAndOrder) {
    SysVarEdits edits(database);
    const auto names = [&](const SysVarView& view) {
        std::vector<std::wstring> out;
        for (const int row : shownRows(edits, view))
            out.push_back(cellText(edits, row, kName));
        return out;
    };
    EXPECT_EQ(names({}).size(), edits.entries().size());
    EXPECT_THAT(names({.filter = L" useri "}),
                ElementsAre(L"USERI1", L"USERI2", L"USERI3", L"USERI4", L"USERI5"));
    EXPECT_THAT(names({.filter = L"2 useR", .ascending = false}), ElementsAre(L"USERR2", L"USERI2"));
    EXPECT_TRUE(names({.filter = std::wstring(10000, L'x')}).empty());
    ASSERT_TRUE(enter(edits, L"USERI2", L"10"));
    ASSERT_TRUE(enter(edits, L"USERI3", L"9"));
    EXPECT_THAT(names({.filter = {}, .onlyChanged = true, .order = kValue}), ElementsAre(L"USERI3", L"USERI2"))
        << "digits count as numbers";
    EXPECT_THAT(names({.filter = L"useri", .order = kMark, .ascending = false}),
                ElementsAre(L"USERI2", L"USERI3", L"USERI1", L"USERI4", L"USERI5"));
}
