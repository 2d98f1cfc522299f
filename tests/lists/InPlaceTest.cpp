#include "kxgui/controls/InPlaceEdit.h"
#include "kxgui/controls/InPlaceFontCombos.h"
#include "platform/host/TavoFonts.h"
#include "platform/toolkit/SortedRows.h"
#include "tests/lists/ListProbe.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

// Remembers what it is told, and stores texts as an owner does.
class Table : public VORDBaseListCtrl {
  public:
    using VORDBaseListCtrl::VORDBaseListCtrl;
    std::vector<LVDispInfo> told;
    int initialised = -1;

  protected:
    void InitalizeInplaceCombobox(CComboBox& combo, int, int, int value) override {
        initialised = value;
        if (value == 5) combo.AddString(L"last");
    }
    void OnEndLabelEdit(const LVDispInfo& info) override {
        told.push_back(info);
        if (info.text) SetItemText(info.item, info.column, *info.text);
        VORDBaseListCtrl::OnEndLabelEdit(info);
    }
};

struct Names : ICtrlFiller {
    std::wstring first;
    explicit Names(std::wstring text) : first(std::move(text)) {}
    void FillCombo(CComboBox& combo, int, int) override {
        combo.AddString(first);
        combo.AddString(L"two");
    }
    std::optional<std::wstring> EditText(int, int) override { return first; }
};

ICtrlFillerPtr names(const wchar_t* first) { return std::make_shared<Names>(first); }

class NamedCombo : public CComboBox {
  public:
    using CComboBox::CComboBox;
};

struct InPlace : ListProbe {
    ListProbeDlg<Table> dialog;
    Table& list = dialog.list;

    void SetUp() override {
        for (int i = 0; i < 4; ++i)
            list.InsertColumn(i, {L"Column " + std::to_wstring(i), 100});
        for (const wchar_t* text : {L"one", L"two", L"three"})
            list.InsertItem(-1, text);
    }
    int run(std::function<void(tv::ui::WindowUser&)> does) {
        user.expect<ListProbeDlg<Table>>(std::move(does));
        return dialog.DoModal();
    }
};

} // namespace

TEST_F(InPlace, WhatAColumnDeclaresFirstStays) {
    EXPECT_FALSE(list.CreateInPlaceEdit(5, kInPlacePlain, names(L"x")));
    EXPECT_FALSE(list.CreateInPlaceEdit(-1, kInPlacePlain, nullptr));
    EXPECT_FALSE(list.CreateInPlaceCombobox(4, nullptr, 0, kInPlacePlain, nullptr));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(list.headerData(i), nullptr);

    const auto first = names(L"first"), second = names(L"second");
    ASSERT_TRUE(list.CreateInPlaceEdit(1, kInPlacePlain, first));
    ASSERT_TRUE(list.CreateInPlaceEdit(1, kEditReadOnly, second));
    EXPECT_EQ(list.headerData(1)->kind, 1);
    EXPECT_EQ(list.headerData(1)->style, kEditReadOnly);
    EXPECT_EQ(list.headerData(1)->filler, first);

    ASSERT_TRUE(list.CreateInPlaceCombobox(2, runtimeClass<CComboBox>(), 7, kInPlacePlain, first));
    ASSERT_TRUE(list.CreateInPlaceCombobox(2, runtimeClass<NamedCombo>(), 8, kComboEditable, second));
    const auto& combo = static_cast<const HeaderInplaceComboboxData&>(*list.headerData(2));
    EXPECT_EQ(combo.kind, 0);
    EXPECT_EQ(combo.runtime, runtimeClass<NamedCombo>());
    EXPECT_EQ(combo.filler, second);
    EXPECT_EQ(combo.value, 7);
    EXPECT_EQ(combo.style, kInPlacePlain);

    EXPECT_EQ(list.InsertColumn(1, {L"New", 50}), 1);
    EXPECT_EQ(list.headerData(1), nullptr);
    EXPECT_EQ(list.headerData(2)->kind, 1) << "descriptors move along with their columns";
    ASSERT_TRUE(list.DeleteColumn(1));
    EXPECT_EQ(list.headerData(1)->kind, 1);
    EXPECT_EQ(list.InsertColumn(-1, {L"None", 50}), -1);
}

TEST_F(InPlace, EnterAndLeavingReportTheTextAndEscapeReportsNone) {
    ASSERT_TRUE(list.CreateInPlaceEdit(1, kInPlacePlain, names(L"begin")));
    EXPECT_EQ(run([&](auto& u) {
                  u.act("LIST", click(0, 0));
                  EXPECT_EQ(list.editor(), nullptr) << "no editor was declared";
                  u.act("LIST", click(0, 1));
                  auto* edit = dynamic_cast<CInPlaceEdit*>(list.editor());
                  ASSERT_TRUE(edit);
                  EXPECT_EQ(edit->GetDlgCtrlID(), 10978);
                  EXPECT_EQ(dialog.GetFocus(), edit);
                  EXPECT_EQ(edit->GetWindowText(), L"begin");
                  u.type(CInPlaceEdit::kName, L"typed");
                  u.key(L"Enter");
                  EXPECT_EQ(dialog.GetFocus(), &list);
                  u.act("LIST", click(1, 1));
                  u.type(CInPlaceEdit::kName, L"dropped");
                  u.key(L"Escape");
                  EXPECT_EQ(dialog.GetFocus(), &list);
                  u.act("LIST", click(1, 1));
                  u.type(CInPlaceEdit::kName, L"elsewhere");
                  u.act("LIST", click(0, 0));
                  u.act("LIST", click(2, 1));
                  u.type(CInPlaceEdit::kName, L"");
                  u.key(L"Enter");
                  ASSERT_EQ(list.told.size(), 4u);
                  EXPECT_EQ(list.told[0].text, L"typed");
                  EXPECT_EQ(list.told[1].text, std::nullopt);
                  EXPECT_TRUE(list.told[1].cancelled);
                  EXPECT_EQ(list.told[2].text, L"elsewhere");
                  EXPECT_EQ(list.told[3].text, std::nullopt) << "an empty text is none";
                  EXPECT_FALSE(list.told[3].cancelled);
                  u.act("LIST", click(2, 1));
                  u.type(CInPlaceEdit::kName, L"by the program");
                  dialog.ok.SetFocus();
                  EXPECT_EQ(list.editor(), nullptr);
                  EXPECT_EQ(list.told.back().text, L"by the program");
                  EXPECT_EQ(dialog.GetFocus(), &dialog.ok);
                  list.SetFocus();
                  EXPECT_EQ(list.GetItemText(0, 1), L"typed");
                  EXPECT_EQ(list.GetItemText(1, 1), L"elsewhere");
                  u.key(L"Escape"); // in the list itself it is the dialog's
              }),
              IDCANCEL);
}

TEST_F(InPlace, TheEditGrowsWithItsTextToTheEdgeOfTheList) {
    ASSERT_TRUE(list.CreateInPlaceEdit(1, kInPlacePlain, nullptr));
    run([&](auto& u) {
        u.act("LIST", click(0, 1));
        const CRect cell = list.editor()->GetWindowRect();
        u.type(CInPlaceEdit::kName, std::wstring(30, L'm'));
        EXPECT_EQ(list.editor()->GetWindowRect().Width(), list.textWidth(std::wstring(30, L'm')) + 5);
        EXPECT_EQ(list.editor()->GetWindowRect().left, cell.left);
        u.type(CInPlaceEdit::kName, std::wstring(10000, L'\x5d0') + L"e\x301");
        EXPECT_EQ(list.editor()->GetWindowRect().right, list.clientSize().cx);
        u.type(CInPlaceEdit::kName, L"i");
        EXPECT_EQ(list.editor()->GetWindowRect().right, list.clientSize().cx) << "it never shrinks";
        list.EndLabelEditing();
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(list.told.back().text, L"i");
        EXPECT_TRUE(list.EditSubLabel(0, 3)) << "whatever the column declares";
        EXPECT_GE(list.scrollX(), 0);
        EXPECT_GE(list.editor()->GetWindowRect().left, 0);
        EXPECT_LT(list.editor()->GetWindowRect().left, list.clientSize().cx);
        EXPECT_FALSE(list.EditSubLabel(3, 0)) << "no such row";
        EXPECT_FALSE(list.EditSubLabel(0, 4));
        u.click("IDOK");
    });
}

TEST_F(InPlace, ACellTogglesBetweenTwoTexts) {
    list.SetColumnWidth(2, 4);
    list.SetItemText(0, 1, L"On");
    list.SetItemText(0, 2, L"On");
    list.SetItemText(1, 1, L"maybe");
    run([&](auto& u) {
        EXPECT_EQ(list.ToggleSubLabel(0, 1, L"On", L"Off"), 1);
        EXPECT_EQ(list.GetItemText(0, 1), L"Off");
        EXPECT_EQ(list.ToggleSubLabel(0, 1, L"On", L"Off"), 1);
        ASSERT_EQ(list.told.size(), 2u);
        EXPECT_EQ(list.told[0].text, L"Off");
        EXPECT_EQ(list.told[1].text, L"On");
        EXPECT_EQ(list.ToggleSubLabel(1, 1, L"On", L"Off"), 0);
        EXPECT_EQ(list.ToggleSubLabel(0, 2, L"On", L"Off"), 0) << "4 pixels are too narrow";
        EXPECT_EQ(list.ToggleSubLabel(0, 9, L"On", L"Off"), 0);
        EXPECT_EQ(list.ToggleSubLabel(9, 1, L"On", L"Off"), 0);
        EXPECT_EQ(list.GetItemText(1, 1), L"maybe");
        EXPECT_EQ(list.GetItemText(0, 2), L"On");
        EXPECT_EQ(list.told.size(), 2u);
        u.click("IDOK");
    });
}

TEST_F(InPlace, DropDownListsAreMadeFilledAndReported) {
    ASSERT_TRUE(list.CreateInPlaceCombobox(1, runtimeClass<NamedCombo>(), 5, kInPlacePlain, names(L"first")));
    list.SetItemText(0, 1, L"two");
    run([&](auto& u) {
        u.act("LIST", click(0, 1));
        auto* combo = dynamic_cast<NamedCombo*>(list.editor());
        ASSERT_TRUE(combo);
        EXPECT_EQ(list.initialised, 5);
        EXPECT_EQ(combo->GetCount(), 3);
        EXPECT_EQ(combo->GetCurSel(), 1) << "the entry with the cell's text";
        EXPECT_GE(combo->droppedWidth(), list.textWidth(L"first"));
        EXPECT_EQ(list.GetComboBoxLongestStrWidth(*combo), list.textWidth(L"first"));
        u.choose("IDC_INPLACE_COMBO", L"first");
        u.key(L"Enter");
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(list.GetItemText(0, 1), L"first");
        u.act("LIST", click(0, 1));
        u.choose("IDC_INPLACE_COMBO", L"two");
        u.key(L"Escape");
        if (list.editor()) u.key(L"Escape"); // the first one closes the open list
        EXPECT_EQ(list.GetItemText(0, 1), L"first");
        EXPECT_TRUE(list.told.back().cancelled);
        const std::size_t told = list.told.size();
        list.SetItemText(2, 1, L"none of them");
        u.act("LIST", click(2, 1));
        u.act("LIST", click(2, 0));
        EXPECT_TRUE(list.told.back().cancelled) << "nothing was chosen";
        EXPECT_EQ(list.told.size(), told + 1);
        EXPECT_EQ(list.GetItemText(2, 1), L"none of them");
        u.act("LIST", click(2, 1));
        for (const wchar_t* key : {L"Down", L"Enter"})
            u.key(key);
        toolkit.runDue();
        EXPECT_EQ(list.editor(), nullptr) << "an accepted entry ends it";
        EXPECT_EQ(list.GetItemText(2, 1), L"first");
        CComboBox* given = list.ShowInPlaceList(1, 2, {L"a", L"b", L"c"}, 2);
        ASSERT_TRUE(given);
        EXPECT_EQ(given->GetLBText(given->GetCurSel()), L"c");
        u.choose("IDC_INPLACE_COMBO", L"b");
        u.click("IDOK");
        EXPECT_EQ(list.GetItemText(1, 2), L"b") << "leaving takes it";
    });
}

TEST_F(InPlace, FontsAndTheirStyles) {
    struct Fonts : TavoFonts {
        std::vector<OdString> families() const override { return {L"Serif", L"Sans"}; }
        std::vector<Style> styles(const OdString& family) const override {
            if (family != OdString(L"Sans")) return {};
            return {{L"Book", false, false}, {L"Bold", true, false}};
        }
        std::vector<OdString> shapeFonts() const override { return {L"romans.shx"}; }
    } fonts;
    host.setFonts(&fonts);
    const auto cell = [this](int item, int column) { return list.GetItemText(item, column); };
    ASSERT_TRUE(list.CreateInPlaceCombobox(1, runtimeClass<CInPlaceFontComboBox>(), 0, kInPlacePlain,
                                           std::make_shared<CInPlaceFontFiller>(cell)));
    ASSERT_TRUE(list.CreateInPlaceCombobox(
        2, runtimeClass<CInPlaceFontStyleComboBox>(), 0, kInPlacePlain,
        std::make_shared<CInPlaceFontStyleFiller>([=](int item, int) { return cell(item, 1); }, cell)));
    list.SetItemText(0, 1, L"Missing");
    run([&](auto& u) {
        u.act("LIST", click(0, 1));
        EXPECT_EQ(u.look("IDC_INPLACE_COMBO").items->size(), 3u);
        EXPECT_EQ(u.text("IDC_INPLACE_COMBO"), L"Missing");
        u.choose("IDC_INPLACE_COMBO", L"Sans");
        u.key(L"Tab");
        EXPECT_EQ(list.GetItemText(0, 1), L"Sans");
        EXPECT_EQ(u.look("IDC_INPLACE_COMBO").items, (std::vector<std::wstring>{L"Book", L"Bold"}));
        u.choose("IDC_INPLACE_COMBO", L"Bold");
        u.act("LIST", click(0, 0));
        u.act("LIST", click(0, 2));
        EXPECT_EQ(u.text("IDC_INPLACE_COMBO"), L"Bold");
        u.act("LIST", click(1, 2)); // no font, no styles
        EXPECT_TRUE(u.look("IDC_INPLACE_COMBO").items->empty());
        u.click("IDOK");
    });
    EXPECT_EQ(list.GetItemText(1, 2), L"");
}

TEST_F(InPlace, TabGoesOnToTheNextCellThatCanBeEdited) {
    for (const int column : {1, 3})
        ASSERT_TRUE(list.CreateInPlaceEdit(column, kInPlacePlain, nullptr));
    run([&](auto& u) {
        const auto at = [&] { return std::pair(list.editorRow(), list.editorColumn()); };
        u.act("LIST", click(0, 1));
        u.type(CInPlaceEdit::kName, L"a");
        u.key(L"Tab");
        EXPECT_EQ(at(), std::pair(0, 3));
        u.key(L"Tab");
        EXPECT_EQ(at(), std::pair(1, 1));
        EXPECT_EQ(list.GetCurSel(), 1);
        u.key(L"Shift+Tab");
        u.key(L"Shift+Tab");
        EXPECT_EQ(at(), std::pair(0, 1));
        u.key(L"Shift+Tab");
        EXPECT_EQ(list.editor(), nullptr) << "there is none before it";
        EXPECT_EQ(dialog.GetFocus(), &list);
        EXPECT_EQ(list.GetItemText(0, 1), L"a");
        u.click("IDOK");
    });
}

// What the rows do meanwhile must not lead a text to another row; what a handler does must not end in a fault.
TEST_F(InPlace, AnEditWhoseRowIsAnotherOneIsDropped) {
    ASSERT_TRUE(list.CreateInPlaceEdit(0, kInPlacePlain, nullptr));
    auto rows = std::make_shared<tv::ui::TextRows>();
    for (const wchar_t* text : {L"x", L"y", L"z"})
        rows->rows.push_back({tv::ui::ListCell{.text = text}});
    list.SetModel(rows);
    run([&](auto& u) {
        const auto edit = [&] {
            u.act("LIST", click(1, 0));
            u.type(CInPlaceEdit::kName, L"new");
        };
        edit();
        rows->rows.erase(rows->rows.begin()); // nobody said so
        u.key(L"Enter");
        EXPECT_TRUE(list.told.empty());
        EXPECT_EQ(list.editor(), nullptr);
        edit();
        rows->rows.erase(rows->rows.begin());
        list.RowsChanged();
        EXPECT_EQ(list.editor(), nullptr) << "its row is gone";
        rows->rows.push_back({tv::ui::ListCell{.text = L"w"}});
        list.RowsChanged();
        edit();
        rows->rows.insert(rows->rows.begin(), {tv::ui::ListCell{.text = L"v"}});
        list.RowsInserted(0);
        u.key(L"Enter");
        ASSERT_EQ(list.told.size(), 1u);
        EXPECT_EQ(list.told[0].item, 2) << "it goes along with its row when the list is told";
        list.told.clear();
        edit();
        list.SetModel(nullptr);
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_TRUE(list.told.empty());

        list.InsertItem(-1, L"own");
        list.InsertItem(-1, L"rows");
        bool again = true;
        list.onEndLabelEdit = [&](const LVDispInfo&) {
            if (!std::exchange(again, false)) return;
            EXPECT_TRUE(list.EditSubLabel(0, 0));
        };
        edit();
        u.key(L"Enter");
        EXPECT_EQ(list.editorRow(), 0) << "the handler opened another one, which stays";
        list.onEndLabelEdit = [&](const LVDispInfo&) {
            list.DeleteAllItems();
            dialog.EndDialog(IDOK);
        };
        u.key(L"Enter");
        EXPECT_EQ(list.GetItemCount(), 0);
    });
}

TEST_F(InPlace, OwnTextsAndAnOpenEditGoAlongWithRowsAndColumns) {
    ASSERT_TRUE(list.CreateInPlaceEdit(1, kInPlacePlain, nullptr));
    run([&](auto& u) {
        u.act("LIST", click(1, 1));
        u.type(CInPlaceEdit::kName, L"new");
        list.InsertItem(0, L"zero");
        EXPECT_EQ(list.editorRow(), 2);
        EXPECT_TRUE(list.told.empty());
        EXPECT_EQ(list.InsertColumn(0, {L"First", 50}), 0); // which ends it
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(list.GetItemText(2, 1), L"two");
        EXPECT_EQ(list.GetItemText(2, 2), L"new");
        ASSERT_TRUE(list.DeleteColumn(1));
        EXPECT_EQ(list.GetItemText(2, 1), L"new");
        u.act("LIST", click(2, 1));
        u.type(CInPlaceEdit::kName, L"gone");
        ASSERT_TRUE(list.DeleteItem(2));
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(list.told.size(), 1u);
        EXPECT_EQ(list.GetItemText(2, 1), L"");

        auto base = std::make_shared<tv::ui::TextRows>();
        for (const wchar_t* text : {L"a", L"b"})
            base->rows.push_back({tv::ui::ListCell{.text = text}});
        const auto sorted = std::make_shared<tv::ui::SortedRows>(base);
        list.SetModel(sorted);
        u.act("LIST", click(0, 1));
        u.type(CInPlaceEdit::kName, L"of a");
        sorted->sort(0, false); // the list was not asked to
        list.RowsChanged();
        u.key(L"Enter");
        EXPECT_EQ(list.told.size(), 1u) << "both cells are empty, but it was begun in the other row";
        list.onEndLabelEdit = [&](const LVDispInfo&) { list.SetModel(nullptr); };
        u.act("LIST", click(0, 1));
        list.SortBy(1, false);
        EXPECT_EQ(list.GetItemCount(), 0) << "nothing is left to sort";
        u.click("IDOK");
    });
}

TEST_F(InPlace, HighlightModesAndHitTest) {
    EXPECT_EQ(list.SetHighlightType(2), kHighlightRow);
    EXPECT_EQ(list.SetHighlightType(3), kHighlightWhileFocused) << "refused: the present one";
    EXPECT_EQ(list.SetHighlightType(1), kHighlightWhileFocused);
    EXPECT_EQ(list.GetHighlightType(), kHighlightFirst);
    run([&](auto& u) {
        int column = -1;
        EXPECT_EQ(list.HitTestEx({150, list.rowHeight() + 1}, column), 1);
        EXPECT_EQ(column, 1);
        EXPECT_EQ(list.HitTestEx({-5, 0}, column), -1);
        EXPECT_EQ(column, -1);
        u.click("IDOK");
    });
}
