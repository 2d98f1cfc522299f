#include "kxgui/controls/InPlaceEdit.h"
#include "tests/lists/ListProbe.h"

#include <gmock/gmock.h>

#include <map>

using testing::ElementsAre;
using Editor = CInPlaceCtrlModel::Editor;

namespace {

// A million rows, of which only the changed values are kept: a text that is no "bad", a choice, a switch and a
// value that comes from a command.
class Million : public CInPlaceCtrlModel {
  public:
    int first = 0, count = 1'000'000;
    std::map<std::pair<int, int>, std::wstring> values;
    int commands = 0;

    int rowCount() const override { return count; }
    std::wstring text(int row, int column) const override {
        const auto found = values.find({row + first, column});
        if (found != values.end()) return found->second;
        return column == 2 ? L"0" : L"cell " + std::to_wstring(row + first);
    }
    tv::ui::ListCell cell(int row, int column) const override { return {.text = text(row, column)}; }
    Editor editor(int, int column) const override {
        constexpr Editor kinds[] = {Editor::edit, Editor::list, Editor::toggle, Editor::command};
        return column < 4 ? kinds[column] : Editor::none;
    }
    std::vector<tv::ui::ListItem> choices(int, int column) const override {
        if (column == 2) return {{L"0", 0, nullptr}, {L"1", 0, nullptr}};
        return {{L"red", 0, nullptr}, {L"green", 0, nullptr}, {L"More...", 0, nullptr}};
    }
    InPlaceAnswer setValue(int row, int column, const std::wstring& text) override {
        if (text == L"bad") return {L"No such value.", {}};
        values[{row + first, column}] = text;
        return {};
    }
    InPlaceAnswer runCommand(int row, int column) override {
        ++commands;
        return setValue(row, column, L"commanded");
    }
    // What a row stands for is its number before rows in front of it went away.
    bool keyed = true;
    std::uintptr_t rowKey(int row) const override {
        return keyed ? static_cast<std::uintptr_t>(row + first) : CInPlaceCtrlModel::rowKey(row);
    }
    int rowOfKey(std::uintptr_t key) const override {
        if (!keyed) return CInPlaceCtrlModel::rowOfKey(key);
        const auto row = static_cast<std::int64_t>(key) - first;
        return row >= 0 && row < count ? static_cast<int>(row) : -1;
    }
};

struct EditableList : ListProbe {
    ListProbeDlg<CListEditableCtrl> dialog;
    CListEditableCtrl& list = dialog.list;
    std::shared_ptr<Million> model = std::make_shared<Million>();
    std::vector<std::wstring> refusals;

    void SetUp() override {
        list.SetColumns({{L"Text", 60}, {L"Choice", 60}, {L"Switch", 60}, {L"Command", 60}, {L"Fixed", 60}});
        list.SetCellModel(model);
        list.onEntered = [this](int, int, const InPlaceAnswer& answer) { refusals.push_back(answer.refusal); };
    }
    int run(std::function<void(tv::ui::WindowUser&)> does) {
        user.expect<ListProbeDlg<CListEditableCtrl>>(std::move(does));
        return dialog.DoModal();
    }
};

} // namespace

TEST_F(EditableList, EachCellHasTheEditorItsModelSays) {
    run([&](auto& u) {
        constexpr int row = 777'777;
        u.act("LIST", click(row, 0));
        u.type(CInPlaceEdit::kName, L"");
        u.key(L"Tab");
        EXPECT_EQ(model->text(row, 0), L"") << "an empty text is a text here";
        EXPECT_EQ(list.editorColumn(), 1);
        u.choose("IDC_INPLACE_COMBO", L"green");
        u.key(L"Tab");
        EXPECT_EQ(model->text(row, 1), L"green");
        EXPECT_EQ(list.editorColumn(), 3) << "a switch has no editor to open";
        u.key(L"Escape");
        if (list.editor()) u.key(L"Escape");
        u.act("LIST", click(row, 2));
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(model->text(row, 2), L"1");
        u.key(L"Space");
        EXPECT_EQ(model->text(row, 2), L"0");
        u.act("LIST", click(row, 4));
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(model->values.size(), 3u);
        u.click("IDOK");
    });
    EXPECT_THAT(refusals, ElementsAre(L"", L"", L"", L""));
}

TEST_F(EditableList, ARefusedTextKeepsTheEditorOnEnterAndTheValueOnLeaving) {
    EXPECT_EQ(run([&](auto& u) {
                  u.act("LIST", click(0, 0));
                  u.type(CInPlaceEdit::kName, L"bad");
                  for (const wchar_t* key : {L"Enter", L"Tab"}) {
                      u.key(key);
                      ASSERT_TRUE(list.editor());
                      EXPECT_EQ(dialog.GetFocus(), list.editor());
                  }
                  EXPECT_THAT(refusals, ElementsAre(L"No such value.", L"No such value."));
                  u.key(L"g"); // replaces the marked text
                  u.key(L"Enter");
                  EXPECT_EQ(model->text(0, 0), L"g");
                  u.act("LIST", click(0, 0));
                  u.type(CInPlaceEdit::kName, L"bad");
                  u.act("LIST", click(0, 4));
                  EXPECT_EQ(list.editor(), nullptr);
                  EXPECT_EQ(model->text(0, 0), L"g");
                  EXPECT_EQ(refusals.back(), L"No such value.");
                  u.act("LIST", click(0, 0));
                  u.type(CInPlaceEdit::kName, L"bad");
                  u.key(L"Escape");
                  EXPECT_EQ(refusals.size(), 4u) << "given up: nobody asks the model";
                  u.key(L"Escape");
              }),
              IDCANCEL);
}

TEST_F(EditableList, AnEditGoesToTheRowItWasBegunOn) {
    run([&](auto& u) {
        u.act("LIST", click(5, 0));
        u.type(CInPlaceEdit::kName, L"five");
        model->first = 3; // three rows in front of it go away
        model->count -= 3;
        list.RowsChanged();
        u.key(L"Enter");
        EXPECT_EQ((model->values[{5, 0}]), L"five");
        EXPECT_EQ(model->values.size(), 1u);
        u.act("LIST", click(1, 0));
        u.type(CInPlaceEdit::kName, L"lost");
        model->first = 100;
        list.RowsChanged();
        u.key(L"Enter");
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(model->values.size(), 1u) << "its row is no longer there";
        u.act("LIST", click(7, 0));
        u.type(CInPlaceEdit::kName, L"lost");
        model->count = 2;
        u.act("LIST", click(0, 4)); // nobody said that there are fewer rows
        EXPECT_EQ(model->values.size(), 1u);
        u.click("IDOK");
    });
}

TEST_F(EditableList, AnEditStaysWithARowThatOnlyTheListFollows) {
    model->keyed = false;
    run([&](auto& u) {
        const auto removeFront = [&](int rows) {
            model->first += rows;
            model->count -= rows;
            list.RowsRemoved(0, rows);
        };
        u.act("LIST", click(5, 0));
        u.type(CInPlaceEdit::kName, L"five");
        removeFront(3);
        u.key(L"Enter");
        EXPECT_EQ((model->values[{5, 0}]), L"five");
        u.act("LIST", click(0, 0));
        u.type(CInPlaceEdit::kName, L"lost");
        removeFront(1);
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(model->values.size(), 1u);
        u.click("IDOK");
    });
}

TEST_F(EditableList, ARefusedToggleIsToldOnce) {
    struct Stubborn : Million {
        InPlaceAnswer setValue(int, int, const std::wstring&) override { return {L"No.", {}}; }
    };
    list.SetCellModel(std::make_shared<Stubborn>());
    run([&](auto& u) {
        u.act("LIST", click(0, 2));
        u.click("IDOK");
    });
    EXPECT_THAT(refusals, ElementsAre(L"No."));
}

TEST_F(EditableList, ACommandRunsWhenItsEntryIsChosen) {
    run([&](auto& u) {
        u.act("LIST", click(2, 3));
        u.choose("IDC_INPLACE_COMBO", L"More...");
        EXPECT_EQ(list.editor(), nullptr);
        EXPECT_EQ(model->commands, 0) << "not within the choice";
        toolkit.runDue();
        EXPECT_EQ(model->commands, 1);
        EXPECT_EQ(model->text(2, 3), L"commanded");
        u.act("LIST", click(2, 3));
        u.choose("IDC_INPLACE_COMBO", L"red");
        u.click("IDOK");
        EXPECT_EQ(model->text(2, 3), L"red");
    });
}
