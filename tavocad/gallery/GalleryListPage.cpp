#include "tavocad/gallery/GalleryListPage.h"

#include "kxgui/controls/InPlaceFontCombos.h"
#include "platform/host/TavoFonts.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "tavocad/gallery/GalleryTemplates.h"
#include "tavocad/gallery/GalleryTexts.h"

#include <algorithm>

using tv::text::format;
using tv::ui::Key;

namespace {

constexpr int rowCounts[] = {8, 1'000'000};
// In the order of EHighlight.
constexpr tv::text::TableText highlights[] = {
    {"IDS_TAVO_GALLERY_HIGHLIGHT_ROW", L"행 전체"},
    {"IDS_TAVO_GALLERY_HIGHLIGHT_FIRST", L"첫 열만"},
    {"IDS_TAVO_GALLERY_HIGHLIGHT_FOCUS", L"포커스가 있을 때 행 전체"}};
// In the order of GalleryRows::Column.
constexpr tv::text::TableText titles[] = {
    {"IDS_TAVO_GALLERY_COL_NAME", L"이름"},       {"IDS_TAVO_GALLERY_COL_COLOR", L"색상"},
    {"IDS_TAVO_GALLERY_COL_WEIGHT", L"선가중치"}, {"IDS_TAVO_GALLERY_COL_STATE", L"상태"},
    {"IDS_TAVO_GALLERY_COL_FONT", L"글꼴"},       {"IDS_TAVO_GALLERY_COL_FONT_STYLE", L"글꼴 유형"},
    {"IDS_TAVO_GALLERY_COL_LENGTH", L"길이"},     {"IDS_TAVO_GALLERY_COL_REMARK", L"비고"}};
constexpr int widths[] = {110, 90, 150, 60, 130, 120, 80, 120};

class Choices : public ICtrlFiller {
  public:
    explicit Choices(std::vector<tv::ui::ListItem> (*make)()) : m_make(make) {}
    void FillCombo(CComboBox& combo, int, int) override { combo.SetItems(m_make()); }

  private:
    std::vector<tv::ui::ListItem> (*m_make)();
};

// Some of the host's fonts, each with its first style.
std::vector<GalleryRows::Font> rowFonts() {
    constexpr std::size_t most = 4;
    auto* host = getTavoInterfaces();
    const TavoFonts* known = host ? host->fonts() : nullptr;
    if (!known) return {};
    auto families = known->families();
    std::sort(families.begin(), families.end());
    if (families.size() > most) families.resize(most);
    std::vector<GalleryRows::Font> fonts;
    for (const OdString& family : families) {
        const auto styles = known->styles(family);
        fonts.push_back({family.wstr(), styles.empty() ? std::wstring() : styles.front().name.wstr()});
    }
    return fonts;
}

} // namespace

// --- the list ---

bool CGalleryList::toggle(int item) {
    const auto [on, off] = GalleryRows::states();
    return ToggleSubLabel(item, GalleryRows::kState, on, off) != 0;
}

bool CGalleryList::OnItemLButtonClick(int item, int column) {
    return column == GalleryRows::kState ? toggle(item) : VORDBaseListCtrl::OnItemLButtonClick(item, column);
}

bool CGalleryList::controlKey(const tv::ui::KeyEvent& key) {
    if (key.key == Key::f2 && focusColumn() == GalleryRows::kState && acceptsUser()) return toggle(focusRow());
    return VORDBaseListCtrl::controlKey(key);
}

// --- the page ---

CGalleryListPage::CGalleryListPage(CWnd& parent, const char* name)
    : VORDBaseChildDlg(IDD_GALLERY_LIST, parent, name), m_memory(tvedSettings(), L"Gallery") {
    m_rowCount.LabelledBy(m_countLabel);
    m_highlight.LabelledBy(m_highlightLabel);
    m_list.LabelledBy(m_listLabel);
    m_rowCount.onSelChange = [this] { setRows(); };
    m_highlight.onSelChange = [this] {
        m_list.SetHighlightType(static_cast<unsigned>(m_highlight.GetCurSel()));
    };
    m_list.onSelChange = [this] { showCount(); };
    m_list.onEndLabelEdit = [this](const LVDispInfo& info) { ended(info); };
    m_list.onCheck = [this](int row, int, bool checked) {
        m_rows->check(m_sorted->identity(row), checked);
        m_list.RowsChanged(row, row);
    };
    m_selectAll.onClick = [this] {
        m_list.SetSelection(tv::ui::RowSet::range(0, m_list.GetItemCount() - 1));
        showCount();
    };
    m_invert.onClick = [this] {
        tv::ui::RowSet rows = m_list.selection();
        rows.invert(m_list.GetItemCount());
        m_list.SetSelection(std::move(rows));
        showCount();
    };
    m_restore.onClick = [this] {
        m_memory.forget();
        setColumns();
    };
}

void CGalleryListPage::SetText() {
    m_countLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_ROWS", L"행(&R):"));
    m_highlightLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_HIGHLIGHT", L"선택 표시(&S):"));
    m_listLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_ENTRIES",
                                                  L"항목(&T) - 셀을 누르거나 F2 키를 누르면 편집합니다:"));
    m_selectAll.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_SELECT_ALL", L"모두 선택(&A)"));
    m_selectAll.SetToolTip(
        VORD_ResourceString("IDS_TAVO_GALLERY_SELECT_ALL_TIP", L"모든 행을 선택합니다 (Ctrl+A)"));
    m_invert.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_INVERT", L"선택 반전(&V)"));
    m_restore.SetWindowText(VORD_ResourceString("IDS_TAVO_GALLERY_RESTORE", L"열 되돌리기(&C)"));
    m_restore.SetToolTip(VORD_ResourceString("IDS_TAVO_GALLERY_RESTORE_TIP",
                                             L"열의 순서, 너비와 숨김을 처음 상태로 되돌립니다"));
}

void CGalleryListPage::InitCtrl() {
    m_rowCount.ResetContent();
    for (const int count : rowCounts)
        m_rowCount.AddString(
            format(VORD_ResourceString("IDS_TAVO_GALLERY_ROW_COUNT", L"%s개"), gallery::grouped(count)));
    m_rowCount.SetCurSel(0);
    m_highlight.ResetContent();
    for (const tv::text::TableText& highlight : highlights)
        m_highlight.AddString(highlight.text());
    m_highlight.SetCurSel(m_list.GetHighlightType());
    setColumns();
    setRows();
    m_memory.restore(m_list);
    m_list.SetFocusCell(0, GalleryRows::kName);
    say(VORD_ResourceString("IDS_TAVO_GALLERY_LOG_NONE", L"아직 편집한 셀이 없습니다.").c_str());
}

void CGalleryListPage::setColumns() {
    std::vector<tv::ui::ListColumn> columns;
    for (int column = 0; column < GalleryRows::kColumns; ++column)
        columns.push_back({titles[column].text(), widths[column]});
    columns[GalleryRows::kLength].align = tv::ui::ListColumn::Align::right;
    columns[GalleryRows::kRemark].visible = false;
    m_list.EndLabelEditing();
    m_list.SetColumns(std::move(columns));
    for (const int column : {GalleryRows::kName, GalleryRows::kLength, GalleryRows::kRemark})
        m_list.CreateInPlaceEdit(column, kInPlacePlain, nullptr);
    m_list.CreateInPlaceCombobox(GalleryRows::kColor, nullptr, 0, kInPlacePlain,
                                 std::make_shared<Choices>(&GalleryRows::colors));
    m_list.CreateInPlaceCombobox(GalleryRows::kWeight, nullptr, 0, kInPlacePlain,
                                 std::make_shared<Choices>(&GalleryRows::weights));
    const auto text = [this](int column) {
        return [this, column](int item, int) { return m_list.GetItemText(item, column); };
    };
    m_list.CreateInPlaceCombobox(GalleryRows::kFont, runtimeClass<CInPlaceFontComboBox>(), 0, kInPlacePlain,
                                 std::make_shared<CInPlaceFontFiller>(text(GalleryRows::kFont)));
    m_list.CreateInPlaceCombobox(
        GalleryRows::kFontStyle, runtimeClass<CInPlaceFontStyleComboBox>(), 0, kInPlacePlain,
        std::make_shared<CInPlaceFontStyleFiller>(text(GalleryRows::kFont), text(GalleryRows::kFontStyle)));
}

void CGalleryListPage::setRows() {
    m_list.EndLabelEditing();
    m_rows = std::make_shared<GalleryRows>(rowCounts[std::max(0, m_rowCount.GetCurSel())], rowFonts());
    m_sorted = std::make_shared<tv::ui::SortedRows>(m_rows);
    m_list.SetModel(m_sorted);
    m_list.SetSortMark(-1, true);
    showCount();
}

void CGalleryListPage::showCount() {
    m_count.SetWindowText(format(VORD_ResourceString("IDS_TAVO_GALLERY_COUNT", L"%s개 행 중 %s개 선택"),
                                 gallery::grouped(m_list.GetItemCount()),
                                 gallery::grouped(static_cast<int>(m_list.selection().count()))));
}

// A typed text, a chosen one and a toggled one alike.
void CGalleryListPage::ended(const LVDispInfo& info) {
    const int row = m_sorted->identity(info.item);
    const std::wstring name = gallery::shortened(m_rows->text(row, GalleryRows::kName));
    const wchar_t* const column = titles[info.column].text();
    if (info.cancelled)
        return say(
            format(VORD_ResourceString("IDS_TAVO_GALLERY_LOG_CANCELLED", L"%s의 %s: 편집을 취소했습니다."),
                   name, column));
    const std::wstring text = info.text.value_or(std::wstring());
    if (text == m_rows->text(row, info.column))
        return say(format(VORD_ResourceString("IDS_TAVO_GALLERY_LOG_KEPT", L"%s의 %s: 바뀌지 않았습니다."),
                          name, column));
    if (!m_rows->set(row, info.column, text))
        return say(format(VORD_ResourceString("IDS_TAVO_GALLERY_LOG_REFUSED",
                                              L"%s의 %s: \"%s\"은(는) 사용할 수 없어 그대로 두었습니다."),
                          name, column, gallery::shortened(text)));
    m_list.RowsChanged(info.item, info.item);
    say(format(VORD_ResourceString("IDS_TAVO_GALLERY_LOG_ENTERED", L"%s의 %s: 이제 \"%s\"입니다."), name,
               column, gallery::shortened(text)));
}
