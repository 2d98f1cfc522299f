#include "kxgui/layers/LayerStatesDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerCsvFields.h"
#include "kxgui/layers/LayerHistory.h"
#include "kxgui/layers/LayerStateEdits.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/text/Collation.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/SortedRows.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace kx::layers;
using tv::text::format;

namespace {

struct MaskBit {
    int bit;
    LayerColumn column;
};
constexpr std::array<MaskBit, 10> kMaskBits = {{
    {tv::dwg::kLayerOn, LayerColumn::on},
    {tv::dwg::kLayerFrozen, LayerColumn::freeze},
    {tv::dwg::kLayerLocked, LayerColumn::lock},
    {tv::dwg::kLayerPlot, LayerColumn::plot},
    {tv::dwg::kLayerNewViewport, LayerColumn::newVpFreeze},
    {tv::dwg::kLayerColor, LayerColumn::color},
    {tv::dwg::kLayerLinetype, LayerColumn::linetype},
    {tv::dwg::kLayerLineWeight, LayerColumn::lineweight},
    {tv::dwg::kLayerTransparency, LayerColumn::transparency},
    {tv::dwg::kLayerPlotStyle, LayerColumn::plotStyle},
}};

std::wstring closeText() { return VORD_ResourceString("IDS_TAVO_LAYSTATE_CLOSE", L"닫기").c_str(); }
std::wstring stateHeading() { return VORD_ResourceString("IDS_TAVO_LAYSTATE_COL_NAME", L"이름").c_str(); }
std::wstring descriptionHeading() { return VORD_ResourceString("IDS_MGD_COMMON_DESC", L"설명").c_str(); }

} // namespace

// A state is read when its row is shown first.
class CLayerStatesDlg::Rows : public tv::ui::ListModel {
  public:
    explicit Rows(const OdDbDatabasePtr& database) : m_database(database) {
        if (m_database)
            for (const OdString& name : tv::dwg::layerStateNames(*m_database))
                m_rows.push_back({name.wstr(), std::nullopt, {}});
        const tv::text::Collator order({.digitsAsNumbers = true, .ignoreCase = true});
        std::ranges::stable_sort(m_rows, order, &Row::name);
    }
    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    tv::ui::ListCell cell(int row, int column) const override {
        const Row& at = m_rows[static_cast<std::size_t>(row)];
        if (column == 0) return {at.name};
        read(at);
        return {column == 1 ? format(L"%d", *at.layers) : at.description};
    }
    std::wstring nameAt(int row) const {
        return row < 0 || row >= rowCount() ? std::wstring() : m_rows[static_cast<std::size_t>(row)].name;
    }
    int rowOfName(std::wstring_view name) const {
        const auto found =
            std::ranges::find_if(m_rows, [&](const Row& row) { return tv::text::equalNoCase(row.name, name); });
        return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
    }

  private:
    struct Row {
        std::wstring name;
        mutable std::optional<int> layers;
        mutable std::wstring description;
    };
    void read(const Row& row) const {
        if (row.layers) return;
        const auto state = tv::dwg::readLayerState(*m_database, row.name);
        row.layers = state ? static_cast<int>(state->layers.size()) : 0;
        if (state) row.description = state->description.wstr();
    }
    OdDbDatabasePtr m_database;
    std::vector<Row> m_rows;
};

CLayerStatesDlg::CLayerStatesDlg(const OdDbDatabasePtr& database, CWnd* parent)
    : VORDRunDlg(IDD_LAYER_STATES, parent), m_database(database) {
    m_list.LabelledBy(m_listLabel);
    m_mask.LabelledBy(m_maskLabel);
    m_list.onSelChange = [this] { selected(); };
    m_list.onDoubleClick = [this](int, int) { restore(); };
    m_mask.onCheck = [this](int row, int, bool checked) {
        m_masks->rows[static_cast<std::size_t>(row)][0].checked = checked;
        m_mask.RowsChanged(row, row);
        showState();
    };
    m_new.onClick = [this] { saveNew(); };
    m_restore.onClick = [this] { restore(); };
    m_compare.onClick = [this] { compare(); };
    m_rename.onClick = [this] { rename(); };
    m_delete.onClick = [this] { remove(); };
}

CLayerStatesDlg::~CLayerStatesDlg() = default;

void CLayerStatesDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_CAPTION", L"도면층 상태 관리자"));
    m_listLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_LIST", L"도면층 상태(&S):"));
    m_list.SetColumns({{stateHeading(), 130},
                       {VORD_ResourceString("IDS_TAVO_LAYSTATE_COL_LAYERS", L"도면층").c_str(), 65,
                        tv::ui::ListColumn::Align::right},
                       {descriptionHeading(), 165}});
    m_new.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_NEW", L"새로 저장(&N)..."));
    m_restore.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_RESTORE", L"복원(&R)"));
    m_compare.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_COMPARE", L"현재와 비교(&C)..."));
    m_rename.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_RENAME", L"이름 바꾸기(&M)..."));
    m_delete.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_DELETE", L"삭제(&D)"));
    m_maskLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_MASK", L"저장하고 복원할 특성(&P):"));
    m_mask.SetColumns({{VORD_ResourceString("IDS_TAVO_LAYSTATE_COL_PROPERTY", L"특성").c_str(), 240}});
    m_othersOff.SetWindowText(
        VORD_ResourceString("IDS_TAVO_LAYSTATE_OTHERS_OFF", L"상태에 없는 도면층 끄기(&O)"));
    m_current.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_CURRENT", L"현재 도면층도 복원(&U)"));
    m_close.SetWindowText(closeText());
}

void CLayerStatesDlg::InitCtrl() {
    m_masks = std::make_shared<tv::ui::TextRows>();
    for (const MaskBit& bit : kMaskBits) {
        tv::ui::ListCell cell{layerColumnText(bit.column)};
        cell.checked = 1;
        m_masks->rows.push_back({cell});
    }
    m_mask.SetModel(m_masks);
    m_current.SetCheck(CCheckBox::checked);
}

void CLayerStatesDlg::Data2Dlg() {
    refresh({});
    m_list.SetFocus();
}

void CLayerStatesDlg::refresh(std::wstring_view name) {
    m_rows = std::make_shared<Rows>(m_database);
    m_list.SetModel(m_rows);
    const int row = name.empty() && m_rows->rowCount() > 0 ? 0 : m_rows->rowOfName(name);
    if (row >= 0) {
        m_list.SetSelection({row});
        m_list.EnsureVisible(row);
    }
    selected();
}

std::wstring CLayerStatesDlg::selectedName() const { return m_rows ? m_rows->nameAt(m_list.GetCurSel()) : L""; }

// The check marks say what the state was saved for.
void CLayerStatesDlg::selected() {
    if (const std::wstring name = selectedName(); m_database && !name.empty())
        if (const auto state = tv::dwg::readLayerState(*m_database, name)) setMask(state->mask);
    showState();
}

void CLayerStatesDlg::showState() {
    const bool any = !selectedName().empty();
    const bool writable = m_database && !m_database->isReadOnly();
    m_new.EnableWindow(writable);
    m_restore.EnableWindow(any && writable);
    m_compare.EnableWindow(any);
    m_rename.EnableWindow(any && writable);
    m_delete.EnableWindow(any && writable);
}

int CLayerStatesDlg::mask() const {
    int out = 0;
    for (std::size_t i = 0; i < kMaskBits.size(); ++i)
        if (m_masks->rows[i][0].checked == 1) out |= kMaskBits[i].bit;
    return out;
}

void CLayerStatesDlg::setMask(int mask) {
    for (std::size_t i = 0; i < kMaskBits.size(); ++i)
        m_masks->rows[i][0].checked = (mask & kMaskBits[i].bit) != 0;
    m_mask.RowsChanged();
}

bool CLayerStatesDlg::written(const tv::Problem& problem, std::wstring_view name) {
    if (problem) {
        warn(this, {GetWindowText(), problem.sentence});
        return false;
    }
    refresh(name);
    if (onWritten) onWritten();
    return true;
}

void CLayerStatesDlg::saveNew() {
    if (!m_database) return;
    const int wanted = mask();
    CLayerStateNameDlg dialog(
        VORD_ResourceString("IDS_TAVO_LAYSTATE_NEW_CAPTION", L"새 도면층 상태").c_str(),
        [&](const std::wstring& name, const std::wstring& description) {
            return saveState(*m_database, name, description, wanted);
        },
        this);
    if (dialog.DoModal() == IDOK) written({}, dialog.GetName());
}

void CLayerStatesDlg::restore() {
    const std::wstring name = selectedName();
    if (!m_database || name.empty() || m_database->isReadOnly()) return;
    const int wanted = mask();
    if (!written(
            restoreState(*m_database, name, {wanted, m_othersOff.GetCheck() != 0, m_current.GetCheck() != 0}),
            name))
        return;
    setMask(wanted);
    layersWritten(m_database);
}

void CLayerStatesDlg::compare() {
    const std::wstring name = selectedName();
    const auto state = m_database ? tv::dwg::readLayerState(*m_database, name) : std::nullopt;
    if (!state) return;
    CLayerStateCompareDlg(name, compareLayerStates(*state, tv::dwg::currentLayerState(*m_database), mask()),
                          this)
        .DoModal();
}

void CLayerStatesDlg::rename() {
    const std::wstring before = selectedName();
    const auto state = m_database ? tv::dwg::readLayerState(*m_database, before) : std::nullopt;
    if (!state) return;
    CLayerStateNameDlg dialog(
        VORD_ResourceString("IDS_TAVO_LAYSTATE_RENAME_CAPTION", L"도면층 상태 이름 바꾸기").c_str(),
        [&](const std::wstring& name, const std::wstring& description) {
            return renameState(*m_database, before, name, description);
        },
        this);
    dialog.SetData(before, state->description.view());
    if (dialog.DoModal() == IDOK) written({}, dialog.GetName());
}

void CLayerStatesDlg::remove() {
    const std::wstring name = selectedName();
    if (!m_database || name.empty()) return;
    if (!confirm(this,
                 {GetWindowText(), format(VORD_ResourceString("IDS_TAVO_LAYSTATE_ASK_DELETE",
                                                              L"도면층 상태 \"%s\"을(를) 삭제하시겠습니까?"),
                                          name)}))
        return;
    const int row = m_list.GetCurSel();
    if (!written(deleteState(*m_database, name), {})) return;
    if (const int last = m_rows->rowCount() - 1; last >= 0) {
        m_list.SetSelection({std::min(row, last)});
        selected();
    }
}

bool CLayerStatesDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    if (GetFocus() == &m_list && !key.ctrl && !key.alt && !key.shift) {
        if (key.key == tv::ui::Key::del && m_delete.IsWindowEnabled()) {
            remove();
            return true;
        }
        if (key.key == tv::ui::Key::enter && m_restore.IsWindowEnabled()) {
            restore();
            return true;
        }
    }
    return VORDRunDlg::PreTranslateMessage(key);
}

// --- name and description ------------------------------------------------------------------------------------

CLayerStateNameDlg::CLayerStateNameDlg(std::wstring caption, Accept accept, CWnd* parent)
    : VORDRunDlg(IDD_LAYER_STATE_NAME, parent), m_caption(std::move(caption)), m_accept(std::move(accept)) {
    m_name.LabelledBy(m_nameLabel);
    m_descriptionEdit.LabelledBy(m_descriptionLabel);
}

void CLayerStateNameDlg::SetData(std::wstring_view name, std::wstring_view description) {
    m_stateName = name;
    m_description = description;
}

void CLayerStateNameDlg::SetText() {
    SetWindowText(m_caption);
    m_nameLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_NAME", L"이름(&N):"));
    m_descriptionLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_DESCRIPTION", L"설명(&D):"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLayerStateNameDlg::InitCtrl() {
    m_name.SetLimitText(255);
    m_descriptionEdit.SetLimitText(1000);
}

void CLayerStateNameDlg::Data2Dlg() {
    m_name.SetWindowText(m_stateName);
    m_descriptionEdit.SetWindowText(m_description);
    m_name.SetFocus();
    m_name.SelectAll();
}

int CLayerStateNameDlg::Dlg2Data() {
    const std::wstring name(withoutBlanks(m_name.GetWindowText()));
    if (const tv::Problem problem = m_accept(name, m_descriptionEdit.GetWindowText())) {
        warn(this, {GetWindowText(), problem.sentence});
        m_name.SetFocus();
        m_name.SelectAll();
        return 0;
    }
    m_stateName = name;
    return 1;
}

// --- comparing -----------------------------------------------------------------------------------------------

namespace {

class DifferenceRows : public tv::ui::ListModel {
  public:
    explicit DifferenceRows(const std::vector<LayerDifference>& differences) : m_differences(differences) {}
    int rowCount() const override { return static_cast<int>(m_differences.size()); }
    tv::ui::ListCell cell(int row, int column) const override {
        const LayerDifference& at = m_differences[static_cast<std::size_t>(row)];
        switch (column) {
        case 0:
            return {at.layer};
        case 1:
            return {propertyOf(at)};
        case 2:
            return {at.saved};
        default:
            return {at.now};
        }
    }

  private:
    static std::wstring propertyOf(const LayerDifference& difference) {
        switch (difference.kind) {
        case LayerDifference::Kind::gone:
            return VORD_ResourceString("IDS_TAVO_LAYSTATE_LAYER_GONE", L"도면에 없는 도면층").c_str();
        case LayerDifference::Kind::added:
            return VORD_ResourceString("IDS_TAVO_LAYSTATE_LAYER_ADDED", L"상태에 없는 도면층").c_str();
        case LayerDifference::Kind::current:
            return VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_51", L"현재 도면층").c_str();
        default:
            return layerColumnText(difference.column);
        }
    }
    const std::vector<LayerDifference>& m_differences;
};

} // namespace

CLayerStateCompareDlg::CLayerStateCompareDlg(std::wstring state, std::vector<LayerDifference> differences,
                                             CWnd* parent)
    : VORDRunDlg(IDD_LAYER_STATE_COMPARE, parent), m_state(std::move(state)),
      m_differences(std::move(differences)) {
    m_list.LabelledBy(m_label);
}

void CLayerStateCompareDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_LAYSTATE_COMPARE_CAPTION", L"도면층 상태 비교"));
    m_label.SetWindowText(format(
        VORD_ResourceString("IDS_TAVO_LAYSTATE_COMPARE_LABEL", L"\"%s\" 상태와 현재 도면의 차이 %d개(&D):"),
        m_state, static_cast<int>(m_differences.size())));
    m_list.SetColumns({{layerColumnText(LayerColumn::name), 140},
                       {VORD_ResourceString("IDS_TAVO_LAYSTATE_COL_PROPERTY", L"특성").c_str(), 180},
                       {VORD_ResourceString("IDS_TAVO_LAYSTATE_COL_SAVED", L"저장된 값").c_str(), 105},
                       {VORD_ResourceString("IDS_TAVO_LAYSTATE_COL_NOW", L"현재 값").c_str(), 105}});
    m_close.SetWindowText(closeText());
}

void CLayerStateCompareDlg::InitCtrl() {
    m_list.SetModel(std::make_shared<tv::ui::SortedRows>(std::make_shared<DifferenceRows>(m_differences)));
}

void CLayerStateCompareDlg::Data2Dlg() { m_list.SetFocus(); }
