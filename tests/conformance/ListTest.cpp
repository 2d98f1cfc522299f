// Lists with columns: selecting, keys, columns and editors in cells, the same for every face.
#include "platform/toolkit/ListColumnsMemory.h"
#include "platform/toolkit/SortedRows.h"
#include "tests/conformance/Faces.h"
#include "tests/conformance/ProbeDlg.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using testing::ElementsAre;
using tv::ui::RowSet;
using tv::ui::UserAction;
using tv::ui::WindowUser;

namespace {

constexpr char list[] = "IDC_LIST";

// Says what becomes of it, and ends itself as editors do.
struct ProbeEditor : CEdit {
    ProbeEditor(CListCtrl& owner, std::vector<std::wstring>& told)
        : CEdit(owner, "IDC_PROBE_EDITOR"), in(owner), log(told) {}
    ~ProbeEditor() override { log.push_back(L"gone"); }
    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override {
        if (key.key != tv::ui::Key::enter && key.key != tv::ui::Key::escape) return tv::ui::KeyRoute::dialog;
        (void)in.userFocus();
        return tv::ui::KeyRoute::used;
    }
    void OnKillFocus() override {
        log.push_back(GetWindowText());
        in.CloseEditor();
    }
    CListCtrl& in;
    std::vector<std::wstring>& log;
};

std::shared_ptr<tv::ui::TextRows> names(std::initializer_list<const wchar_t*> texts) {
    auto rows = std::make_shared<tv::ui::TextRows>();
    for (const wchar_t* text : texts) {
        tv::ui::ListCell name, number;
        name.text = text;
        number.text = std::to_wstring(rows->rows.size());
        rows->rows.push_back({name, number});
    }
    return rows;
}

} // namespace

template <class Face>
class Lists : public testing::Test {
  protected:
    void run(std::function<void(WindowUser&)> does) {
        user.template expect<ProbeDlg>([&](WindowUser& u) {
            dlg.list.SetFocus();
            does(u);
            if (dlg.running()) dlg.EndDialog(IDCANCEL);
        });
        dlg.DoModal();
    }
    void keys(WindowUser& u, std::initializer_list<const wchar_t*> all) {
        for (const wchar_t* key : all)
            u.key(key);
    }
    static UserAction cell(UserAction::Cell what, int row, int column) {
        UserAction out;
        out.kind = UserAction::Kind::cell;
        out.cell = what;
        out.row = row;
        out.column = column;
        return out;
    }
    static UserAction column(UserAction::Kind kind, int column, int index = -1) {
        UserAction out;
        out.kind = kind;
        out.column = column;
        out.index = index;
        return out;
    }

    ProbeModule module;
    ProbeDlg dlg;
    Face face;
    tv::ui::SimulatedUser user{face.toolkit, [](const std::string& m) { ADD_FAILURE() << m; }, face.hand()};
};
TYPED_TEST_SUITE(Lists, Faces);

TYPED_TEST(Lists, AreWalkedThroughByKeysAlone) {
    CListCtrl& rows = this->dlg.list;
    rows.SetModel(std::make_shared<CountingRows>(1000));
    this->run([&](WindowUser& u) {
        this->keys(u, {L"Down", L"Down"});
        EXPECT_EQ(rows.selection(), RowSet{1});
        this->keys(u, {L"Shift+Down", L"Shift+Down", L"Shift+Down", L"Shift+Up"});
        EXPECT_EQ(rows.selection(), (RowSet{1, 2, 3}));
        this->keys(u, {L"Ctrl+Down", L"Ctrl+Down"});
        EXPECT_EQ(rows.selection(), (RowSet{1, 2, 3})) << "only the focus moved";
        this->keys(u, {L"Ctrl+Space"});
        EXPECT_EQ(rows.selection(), (RowSet{1, 2, 3, 5}));
        this->keys(u, {L"Ctrl+Shift+I"});
        EXPECT_EQ(rows.selection().ranges(), (std::vector<RowSet::Range>{{0, 0}, {4, 4}, {6, 999}}));
        this->keys(u, {L"Shift+Space"});
        EXPECT_EQ(rows.selection(), RowSet{5}) << "the row that was taken in last begins the next range";
        this->keys(u, {L"End"});
        EXPECT_EQ(rows.selection(), RowSet{999});
        EXPECT_TRUE(rows.fullyVisible(999));
        this->keys(u, {L"PageUp"});
        EXPECT_EQ(rows.focusRow(), 999 - std::max(1, rows.rowsInView() - 1));
        this->keys(u, {L"Shift+Home"});
        EXPECT_EQ(rows.selection().count(), rows.selection().last() + 1);
        EXPECT_EQ(rows.topRow(), 0);

        this->dlg.fired.clear();
        this->keys(u, {L"Ctrl+A"});
        EXPECT_EQ(rows.selection(), RowSet::range(0, 999));
        EXPECT_EQ(this->dlg.fired["list"], 1);
        rows.SetSelection({0, 2});
        this->keys(u, {L"Ctrl+C"});
        EXPECT_EQ(this->face.toolkit.clipboardText(), L"row 0.0\trow 0.1\nrow 2.0\trow 2.1\n");
    });
}

TYPED_TEST(Lists, FindRowsByWhatIsTyped) {
    CListCtrl& rows = this->dlg.list;
    rows.SetModel(names({L"alpha", L"beta", L"Bravo", L"be quick", L"été", L"beta 2"}));
    this->run([&](WindowUser& u) {
        const auto typed = [&](std::initializer_list<const wchar_t*> keys) {
            this->keys(u, keys);
            return rows.GetCurSel();
        };
        EXPECT_EQ(typed({L"b"}), 1);
        EXPECT_EQ(typed({L"b"}), 2) << "the same letter goes round";
        this->face.pass(1100ms);
        EXPECT_EQ(typed({L"b", L"e", L"Space", L"Q"}), 3);
        this->face.pass(1100ms);
        EXPECT_EQ(typed({L"É"}), 4);
        EXPECT_EQ(typed({L"x"}), 4);

        // Far away rows are found as well, a stretch at a time.
        auto many = std::make_shared<tv::ui::TextRows>();
        many->rows.resize(50'001);
        many->rows.back().resize(1);
        many->rows.back().front().text = L"zulu";
        rows.SetModel(many);
        this->keys(u, {L"z"});
        for (int i = 0; i < 10 && rows.GetCurSel() < 0; ++i)
            this->face.pass(20ms);
        EXPECT_EQ(rows.GetCurSel(), 50'000);
    });
}

TYPED_TEST(Lists, EditorsGetTheirKeysAndEndWithTheirFocus) {
    CListCtrl& rows = this->dlg.list;
    std::vector<std::wstring> log;
    this->run([&](WindowUser& u) {
        const auto open = [&](int row) {
            auto editor = std::make_unique<ProbeEditor>(rows, log);
            editor->SetWindowText(L"old");
            rows.ShowEditor(std::move(editor), row, 1);
        };
        open(2);
        ASSERT_NE(rows.editor(), nullptr);
        EXPECT_EQ(rows.editor()->GetWindowRect().TopLeft(), rows.cellRect(2, 1).TopLeft());
        this->face.expectShown(this->dlg);
        u.type("IDC_PROBE_EDITOR", L"first");
        rows.ScrollTo(1);
        EXPECT_EQ(rows.editor()->GetWindowRect().top, rows.rowHeight()) << "follows its cell";
        u.key(L"Enter");
        EXPECT_TRUE(this->dlg.running()) << "the default button was not meant";
        EXPECT_EQ(rows.editor(), nullptr);
        EXPECT_EQ(this->dlg.GetFocus(), &rows);
        this->face.pass(20ms);
        EXPECT_THAT(log, ElementsAre(L"first", L"gone"));

        // Rows that come and go take the editor and the selection along.
        auto counted = std::make_shared<CountingRows>(50);
        rows.SetModel(counted);
        rows.SetSelection({3, 4});
        open(4);
        counted->count = 52;
        rows.RowsInserted(4, 2);
        EXPECT_EQ(rows.selection(), (RowSet{3, 6}));
        EXPECT_EQ(rows.editorRow(), 6);
        EXPECT_EQ(rows.editor()->GetWindowRect().top, rows.cellRect(6, 1).top);
        counted->count = 48;
        rows.RowsRemoved(3, 4);
        EXPECT_EQ(rows.editor(), nullptr);
        EXPECT_TRUE(rows.selection().empty());
        EXPECT_EQ(rows.focusRow(), 3);
        this->face.pass(20ms);
        EXPECT_THAT(log, ElementsAre(L"first", L"gone", L"gone"));
        log.clear();

        open(0);
        u.key(L"Alt+O"); // a button's mnemonic
        EXPECT_EQ(this->dlg.fired["more"], 0);
        u.act(list, this->cell(UserAction::Cell::click, 3, 0));
        open(3);
        open(4);
        EXPECT_EQ(rows.editorRow(), 4);
        u.click("IDC_CHECK");
        EXPECT_EQ(rows.editor(), nullptr);
        this->face.pass(20ms);
        EXPECT_EQ(std::count(log.begin(), log.end(), L"old"), 3);
        EXPECT_EQ(std::count(log.begin(), log.end(), L"gone"), 3);
        open(5); // the window ends under it
    });
    EXPECT_EQ(log.back(), L"gone");
    EXPECT_EQ(rows.editor(), nullptr);
}

TYPED_TEST(Lists, CellTextsAreEditedInPlace) {
    CListCtrl& rows = this->dlg.list;
    std::vector<std::wstring> taken;
    rows.onEdit = [&](int, int, const std::wstring& text) {
        taken.push_back(text);
        return text != L"bad";
    };
    this->run([&](WindowUser& u) {
        this->keys(u, {L"Down", L"F2"}); // the first cell that has one
        ASSERT_NE(rows.editor(), nullptr);
        EXPECT_EQ(rows.editorColumn(), 1);
        EXPECT_EQ(rows.editor()->accessibleName(), L"Second");
        u.type("IDC_CELL_EDITOR", L"bad");
        u.key(L"Enter");
        EXPECT_NE(rows.editor(), nullptr) << "stays open with a text that is refused";
        u.key(L"Escape");
        EXPECT_EQ(rows.editor(), nullptr);
        this->keys(u, {L"F2", L"Enter"});
        EXPECT_THAT(taken, ElementsAre(L"bad")) << "unchanged";
        u.act(list, this->cell(UserAction::Cell::open, 2, 1));
        u.type("IDC_CELL_EDITOR", L"good");
        u.click("IDC_EDIT");
        EXPECT_EQ(rows.editor(), nullptr);
        EXPECT_THAT(taken, ElementsAre(L"bad", L"good"));
        int told = -1;
        rows.onEdit = [&](int row, int, const std::wstring&) {
            told = row;
            return true;
        };
        auto own = names({L"a", L"b", L"c"});
        for (auto& cells : own->rows)
            cells[1].editable = true;
        rows.SetModel(own);
        u.act(list, this->cell(UserAction::Cell::open, 2, 1));
        u.type("IDC_CELL_EDITOR", L"of c");
        own->rows.erase(own->rows.begin());
        rows.RowsRemoved(0);
        u.key(L"Enter");
        EXPECT_EQ(told, 1) << "where its row is by then";
        told = -1;
        u.act(list, this->cell(UserAction::Cell::open, 0, 1));
        u.type("IDC_CELL_EDITOR", L"of b");
        own->rows.erase(own->rows.begin()); // and nobody said so
        rows.RowsChanged();
        u.key(L"Enter");
        EXPECT_EQ(told, -1);
        rows.SetModel(std::make_shared<CountingRows>(10));
        u.refused(list, this->cell(UserAction::Cell::open, 2, 0));
    });
}

TYPED_TEST(Lists, AnEditorOutlivesTheBoxItsTextCallsFor) {
    CListCtrl& rows = this->dlg.list;
    ProbeDlg box;
    int asked = 0;
    rows.onEdit = [&](int, int, const std::wstring&) {
        rows.SetModel(std::make_shared<CountingRows>(10)); // closes it
        this->user.template expect<ProbeDlg>([&](WindowUser&) {
            ++asked;
            this->face.pass(20ms);
            box.EndDialog(IDCANCEL);
        });
        box.DoModal();
        return false;
    };
    this->run([&](WindowUser& u) {
        u.act(list, this->cell(UserAction::Cell::open, 1, 1));
        u.type("IDC_CELL_EDITOR", L"new");
        u.key(L"Enter");
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(rows.editor(), nullptr);
        EXPECT_TRUE(this->dlg.running());
    });
}

TYPED_TEST(Lists, ColumnsAreArrangedAndRemembered) {
    CListCtrl& rows = this->dlg.list;
    tv::MemorySettingsStore store;
    tv::ui::ListColumnsMemory memory(&store, L"probe");
    using Kind = UserAction::Kind;
    rows.SetColumns({{L"A", 40}, {L"B", 60}, {L"C", 80}});
    int told = 0;
    rows.onColumnsChange = [&] { ++told; };
    this->run([&](WindowUser& u) {
        u.act(list, this->column(Kind::moveColumn, 2, 0));
        u.act(list, this->column(Kind::resizeColumn, 0, 300));
        u.act(list, this->column(Kind::showColumn, 1));
        EXPECT_EQ(told, 3);
        EXPECT_THAT(rows.layout().visible(), ElementsAre(2, 0));
        EXPECT_EQ(u.look(list).columnsShown, (std::vector<int>{2, 0}));
        EXPECT_EQ(rows.cellRect(0, 0).left, rows.columnWidth(2) - rows.scrollX());
        EXPECT_EQ(rows.cellRect(0, 1), CRect());
        u.refused(list, this->cell(UserAction::Cell::click, 0, 1)); // nobody sees it
        u.act(list, this->column(Kind::showColumn, 2));
        u.refused(list, this->column(Kind::showColumn, 0)); // the last one
        memory.save(rows);
        rows.SetSelection({0});
        EXPECT_EQ(rows.selectedText(), L"row 0.0\n");
        u.act(list, this->column(Kind::resizeColumn, 0));
        EXPECT_GE(rows.columnWidth(0), rows.textWidth(L"row 0.0"));
    });
    rows.SetColumns({{L"A", 40}, {L"B", 60}, {L"C", 80}});
    EXPECT_TRUE(memory.restore(rows));
    EXPECT_THAT(rows.layout().order(), ElementsAre(2, 0, 1));
    EXPECT_THAT(rows.layout().visible(), ElementsAre(0));
    EXPECT_EQ(rows.columns()[0].width, 300);
    rows.SetColumns({{L"A", 40}, {L"B", 60}});
    EXPECT_FALSE(memory.restore(rows)) << "of other columns";
    for (const wchar_t* bad :
         {L"", L"0:1", L"0:1 0:1", L"-0:1 -1:1", L"0:99999999 1:1", L"1 0", L"0:1 1:1 2:1"}) {
        store.setString(L"ListColumns", L"probe", bad);
        EXPECT_FALSE(memory.restore(rows)) << bad;
    }
    EXPECT_THAT(rows.layout().visible(), ElementsAre(0, 1));
}

TYPED_TEST(Lists, TitlesSortAndTheSelectionStaysWithItsRows) {
    CListCtrl& rows = this->dlg.list;
    rows.onHeaderClick = {};
    auto sorted =
        std::make_shared<tv::ui::SortedRows>(names({L"wall 10", L"Wall 9", L"door", L"WALL 9", L"arch"}));
    rows.SetModel(sorted);
    this->run([&](WindowUser& u) {
        const auto order = [&] {
            std::wstring out;
            for (int row = 0; row < rows.GetItemCount(); ++row)
                out += rows.cellText(row, 1);
            return out;
        };
        u.selectRows(list, {0, 2});
        u.act(list, this->column(UserAction::Kind::header, 0));
        EXPECT_EQ(order(), L"42130") << "equal ones stay as they were";
        EXPECT_EQ(rows.selection(), (RowSet{1, 4}));
        EXPECT_EQ(rows.sortColumn(), 0);
        u.act(list, this->column(UserAction::Kind::header, 0));
        EXPECT_EQ(order(), L"01324");
        EXPECT_EQ(rows.selection(), (RowSet{0, 3}));
        EXPECT_EQ(sorted->rowOf(2), 3);
        this->keys(u, {L"Ctrl+Left", L"Ctrl+Left", L"Ctrl+Shift+S"});
        EXPECT_EQ(order(), L"42130") << "by keys alone";
        this->keys(u, {L"Ctrl+Right", L"Ctrl+Shift+S"});
        EXPECT_EQ(order(), L"01234");
        EXPECT_EQ(rows.sortColumn(), 1);
        sorted->setUnsortable({0});
        u.act(list, this->column(UserAction::Kind::header, 0));
        EXPECT_EQ(rows.sortColumn(), 1);
    });
}

TYPED_TEST(Lists, AMillionRowsCostWhatIsShown) {
    CListCtrl& rows = this->dlg.list;
    auto many = std::make_shared<CountingRows>(1'000'000);
    rows.SetModel(many);
    this->run([&](WindowUser& u) {
        this->keys(u, {L"Ctrl+A"});
        EXPECT_EQ(rows.selection().count(), 1'000'000);
        u.act(list, this->cell(UserAction::Cell::click, 500'000, 0));
        this->keys(u, {L"Ctrl+Shift+I", L"End"});
        rows.SetSelection(RowSet::range(10, 999'998));
        this->face.pass(20ms);
        const auto look = u.look(list);
        EXPECT_EQ(look.selection->size(), 1000U);
        EXPECT_EQ(look.selectedCount, 999'989);
        EXPECT_EQ(look.selectedRanges, (std::vector<RowSet::Range>{{10, 999'998}}));
        u.act(list, this->column(UserAction::Kind::resizeColumn, 0));
        EXPECT_LT(many->asked, 8000);
        // Every other row: no face may choke on half a million ranges.
        std::vector<int> even(500'000);
        for (std::size_t i = 0; i < even.size(); ++i)
            even[i] = static_cast<int>(2 * i);
        rows.SetSelection(RowSet(std::move(even)));
        this->face.pass(20ms);
        EXPECT_EQ(rows.selection().count(), 500'000);
    });
}

TYPED_TEST(Lists, CheckBoxesAndTextsOfAnyLength) {
    CListCtrl& rows = this->dlg.list;
    auto model = names({L"on", L"off"});
    for (auto& row : model->rows)
        row[0].checked = 0;
    model->rows[1][1].text = std::wstring(10'000, L'W');
    model->rows[0][1].text = L"\u05e9\u05dc\u05d5\u05dd e\u0301 \u0645\u0631\u062d\u0628\u0627";
    rows.SetModel(model);
    rows.onCheck = [&](int row, int column, bool checked) {
        model->rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].checked = checked;
        rows.RowsChanged(row, row);
    };
    this->run([&](WindowUser& u) {
        this->keys(u, {L"Down", L"Space"});
        EXPECT_EQ(model->rows[0][0].checked, 1);
        UserAction check = this->cell(UserAction::Cell::check, 1, 0);
        check.checked = 1;
        u.act(list, check);
        EXPECT_EQ(model->rows[1][0].checked, 1);
        u.refused(list, this->cell(UserAction::Cell::check, 1, 1));
        u.act(list, this->column(UserAction::Kind::resizeColumn, 1));
        EXPECT_LE(rows.columns()[1].width, 1000);
        this->face.pass(20ms);
    });
}

TYPED_TEST(Lists, TellADoubleClickAsAClickThatIsTakenBack) {
    CListCtrl& rows = this->dlg.list;
    auto model = names({L"a", L"b", L"c"});
    model->rows[0][0].pictureOnly = true;
    rows.SetModel(model);
    std::vector<std::string> told;
    const auto tell = [&](const char* what) {
        return [&told, what](int row, int column) {
            told.push_back(what + std::to_string(row) + "." + std::to_string(column));
        };
    };
    rows.onClick = tell("click");
    rows.onTakeBack = tell("back");
    rows.onDoubleClick = tell("double");
    rows.onEdit = nullptr;
    this->run([&](WindowUser& u) {
        u.act(list, this->cell(UserAction::Cell::doubleClick, 1, 0));
        EXPECT_THAT(told, ElementsAre("click1.0", "back1.0", "double1.0"));
        told.clear();
        // What stood there when the click came has gone elsewhere: it was no double click on anything.
        rows.onClick = [&](int, int) {
            told.emplace_back("click");
            rows.SetModel(names({L"c", L"b", L"a"}));
        };
        u.act(list, this->cell(UserAction::Cell::click, 0, 1));
        rows.SetModel(model);
        rows.SetSelection({0});
        rows.SetFocusCell(0, 0);
        told.clear();
        rows.onClick = tell("click");
        EXPECT_EQ(u.look(list).rows[0][0], L"a") << "what the picture says";
        u.key(L"Space");
        EXPECT_THAT(told, ElementsAre("click0.0")) << "a picture is pressed by key as well";
    });
}

TYPED_TEST(Lists, HaveAMenuOfTheirColumns) {
    CListCtrl& rows = this->dlg.list;
    rows.SetColumns(
        {{L"First", 80}, {L"Second & more", 70}, {L"Third", 60, tv::ui::ListColumn::Align::left, false}});
    int changes = 0;
    rows.onColumnsChange = [&] { ++changes; };
    this->run([&](WindowUser& u) {
        const auto choose = [&](std::wstring text) {
            u.act(list, this->column(UserAction::Kind::columnMenu, 1));
            UserAction entry;
            entry.kind = UserAction::Kind::menu;
            entry.text = std::move(text);
            u.act(list, entry);
        };
        choose(L"Second & more");
        EXPECT_THAT(rows.layout().visible(), ElementsAre(0));
        u.act(list, this->column(UserAction::Kind::columnMenu, 1));
        const auto look = u.look();
        ASSERT_TRUE(look.menu);
        EXPECT_FALSE((*look.menu)[5].enabled) << "the last column can't be hidden";
        EXPECT_EQ((*look.menu)[5].checked, true);
        u.key(L"Escape");
        this->face.pass(1ms);
        choose(L"모든 열 표시");
        EXPECT_THAT(rows.layout().visible(), ElementsAre(0, 1, 2));
        EXPECT_EQ(changes, 2);
        u.act(list, this->column(UserAction::Kind::moveColumn, 0, 2));
        u.act(list, this->column(UserAction::Kind::resizeColumn, 0, 20));
        rows.SetColumns([&] { // other titles, as in another language
            auto columns = rows.columns();
            columns[0].title = L"Erste";
            return columns;
        }());
        choose(L"열 되돌리기");
        EXPECT_THAT(rows.layout().visible(), ElementsAre(0, 1));
        EXPECT_EQ(rows.columns()[0].width, 80);
        EXPECT_EQ(rows.columns()[0].title, L"Erste");
        rows.SetFocus();
        u.key(L"Ctrl+Menu");
        EXPECT_NE(this->face.toolkit.menu(), nullptr);
    });
}
