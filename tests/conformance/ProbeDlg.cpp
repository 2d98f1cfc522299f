#include "tests/conformance/ProbeDlg.h"

#include <array>

namespace {
constexpr std::array<tv::ui::DialogTemplate, 3> templates{
    {{IDD_PROBE, "IDD_PROBE", {300, 260}, true},
     {IDD_PROBE_PAGE1, "IDD_PROBE_PAGE1", {100, 40}, false},
     {IDD_PROBE_PAGE2, "IDD_PROBE_PAGE2", {100, 40}, false}}};
}

ProbeModule::ProbeModule() { tv::ui::ModuleChain::instance().add({"probe", false, templates}); }

ProbeModule::~ProbeModule() { tv::ui::ModuleChain::instance().remove("probe"); }

tv::ui::ListCell CountingRows::cell(int row, int column) const {
    ++asked;
    highest = std::max(highest, row);
    tv::ui::ListCell out;
    out.text = L"row " + std::to_wstring(row) + L"." + std::to_wstring(column);
    out.editable = column == 1;
    return out;
}

ProbeDlg::ProbeDlg(CWnd* owner) : CDialog(IDD_PROBE, owner) {
    const auto count = [this](const char* name) { return [this, name] { ++fired[name]; }; };
    edit.onChange = count("edit");
    edit.onKillFocus = count("left");
    memo.onChange = count("memo");
    red.onClick = count("red");
    green.onClick = count("green");
    blue.onClick = count("blue");
    check.onClick = count("check");
    combo.onSelChange = count("combo");
    combo.onDropDown = count("dropDown");
    entry.onSelChange = entry.onEditChange = count("entry");
    box.onSelChange = count("box");
    list.onSelChange = count("list");
    list.onClick = list.onDoubleClick = [this](int, int) { ++fired["cell"]; };
    list.onHeaderClick = [this](int) { ++fired["header"]; };
    list.onEdit = [this](int, int, const std::wstring& text) {
        return ++fired["cellEdit"] > 0 && text != L"bad";
    };
    tree.onSelChange = count("tree");
    tree.onExpand = [this](int, bool) { ++fired["expand"]; };
    tree.onRename = [this](int, const std::wstring& text) { return ++fired["rename"] > 0 && text != L"bad"; };
    slider.onChange = count("slider");
    swatches.onSelChange = count("swatches");
    area.onClick = [this](tv::ui::DrawPoint) { ++fired["area"]; };
    tabs.onSelChange = count("tabs");
    page1.inside.onChange = count("inside1");
    page2.inside.onClick = count("inside2");
    command.onClick = count("command");
    more.onClick = count("more");

    SetWindowText(L"Probe");
    editLabel.SetWindowText(L"&Name:");
    edit.LabelledBy(editLabel);
    memo.SetAccessibleName(L"Memo");
    red.SetWindowText(L"&Red");
    green.SetWindowText(L"&Green");
    blue.SetWindowText(L"&Blue");
    check.SetWindowText(L"Che&ck");
    command.SetWindowText(L"Co&mmand\nwhat it does");
    more.SetWindowText(L"M&ore...");
    ok.SetWindowText(L"OK");
    cancel.SetWindowText(L"Cancel");
    for (const wchar_t* text : {L"alpha", L"beta", L"gamma", L"bravo"}) {
        combo.AddString(text);
        entry.AddString(text);
        box.AddString(text);
    }
    list.SetColumns({{L"First", 80}, {L"Second", 80}});
    list.SetModel(std::make_shared<CountingRows>(100000));
    const int root = tree.InsertItem(L"root");
    tree.SetRenamable(tree.InsertItem(L"leaf", root), true);
    tree.InsertItem(L"other");
    slider.SetRange(0, 10);
    swatches.SetCells(
        {{0xff0000, L"red", 1}, {0x00ff00, L"green", 2}, {0x0000ff, L"blue", 3}, {0, L"black", 4}});
    area.SetDisplayList({{0, 0}, {10, 10}, {}, {}});
    tabs.AddPage(page1, L"One");
    tabs.AddPage(page2, L"Two");
    page2.inside.SetWindowText(L"Inside");
}

int ProbeDlg::OnInitDialog() {
    if (init) init();
    return 1;
}

int ProbeDlg::total() const {
    int sum = 0;
    for (const auto& [name, times] : fired)
        sum += times;
    return sum;
}
