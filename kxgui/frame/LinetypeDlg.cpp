#include "kxgui/frame/LinetypeDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

using namespace kx::frame;

namespace {

enum Column { kName, kSample, kDescription };

} // namespace

CLinetypeDlg::CLinetypeDlg(const OdDbDatabasePtr& database, bool special, CWnd* parent)
    : VORDRunDlg(IDD_LINETYPE, parent), m_database(database), m_special(special) {
    m_list.LabelledBy(m_label);
    m_list.onDoubleClick = [this](int, int) { OnOK(); };
    m_list.onHeaderClick = [this](int column) { sortBy(column); };
}

void CLinetypeDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_LINETYPE_CAPTION", L"선종류 선택"));
    m_label.SetWindowText(VORD_ResourceString("IDS_TAVO_LINETYPE_LIST", L"도면의 선종류(&L):"));
    m_list.SetColumns({{VORD_ResourceString("IDS_TAVO_LINETYPE_COL_NAME", L"이름").c_str(), 130},
                       {VORD_ResourceString("IDS_TAVO_LINETYPE_COL_SAMPLE", L"모양").c_str(), 90},
                       {VORD_ResourceString("IDS_TAVO_LINETYPE_COL_DESCRIPTION", L"설명").c_str(), 190}});
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLinetypeDlg::InitCtrl() {
    m_rows = m_database ? linetypeRows(*m_database, m_special) : std::vector<LinetypeRow>();
    if (m_recordsOnly) std::erase_if(m_rows, [](const LinetypeRow& row) { return row.id.isNull(); });
    sortLinetypes(m_rows, LinetypeOrder::name, true);
    m_list.SetSortMark(kName, true);
    showRows();
}

void CLinetypeDlg::Data2Dlg() {
    if (const int row = rowOfChosen(); row >= 0) {
        m_list.SetSelection({row});
        m_list.EnsureVisible(row);
    }
    m_list.SetFocus();
}

int CLinetypeDlg::rowOfChosen() const {
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const bool same = m_chosen.id.isNull() ? tv::text::equalNoCase(m_rows[i].name, m_chosen.name)
                                               : m_rows[i].id == m_chosen.id;
        if (same) return static_cast<int>(i);
    }
    return -1;
}

void CLinetypeDlg::showRows() {
    auto model = std::make_shared<tv::ui::TextRows>();
    for (const LinetypeRow& row : m_rows) {
        auto& cells = model->rows.emplace_back();
        cells.resize(3);
        cells[kName].text = linetypeText(row);
        cells[kSample].picture = row.sample;
        cells[kDescription].text = row.description;
    }
    m_list.SetModel(std::move(model));
}

// The selected linetype stays selected wherever it goes.
void CLinetypeDlg::sortBy(int column) {
    if (column == kSample) return;
    const bool ascending = m_list.sortColumn() != column || !m_list.sortAscending();
    const LinetypeRow before = m_chosen;
    const int selected = m_list.GetCurSel();
    if (selected >= 0) m_chosen = m_rows[static_cast<std::size_t>(selected)];
    sortLinetypes(m_rows, column == kName ? LinetypeOrder::name : LinetypeOrder::description, ascending);
    m_list.SetSortMark(column, ascending);
    showRows();
    if (const int row = selected < 0 ? -1 : rowOfChosen(); row >= 0) {
        m_list.SetSelection({row});
        m_list.EnsureVisible(row);
    }
    m_chosen = before;
}

int CLinetypeDlg::Dlg2Data() {
    const int row = m_list.GetCurSel();
    if (row < 0) {
        MessageDlg(this, VORD_ResourceString("IDS_TAVO_LINETYPE_NONE", L"목록에서 선종류를 선택하십시오."),
                   GetWindowText().c_str(), 0x30);
        m_list.SetFocus();
        return 0;
    }
    m_chosen = m_rows[static_cast<std::size_t>(row)];
    return 1;
}
