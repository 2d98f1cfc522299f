#include "kxgui/layers/LayerFilterDlg.h"

#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/Templates.h"
#include "kxgui/layers/LayerBoxes.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

#include <algorithm>
#include <utility>

using namespace kx::layers;
using tv::ui::Key;

namespace {

std::wstring trimmed(const std::wstring& text) {
    const auto first = text.find_first_not_of(L' ');
    if (first == std::wstring::npos) return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

} // namespace

CLayerFilterDlg::CLayerFilterDlg(OdDbDatabase* database, CWnd* parent, OdDbObjectId viewport)
    : VORDRunDlg(IDD_LAYER_FILTER, parent), m_columns(tvedSettings(), L"IDC_LAYER_FILTER_ROWS"),
      m_model(std::make_shared<LayerFilterRows>(database)),
      m_preview(std::make_shared<LayerFilterPreview>(database, viewport)) {
    m_model->chooseColor = [this](const OdCmColor& present) -> std::optional<OdCmColor> {
        CColorDlg dialog(present, 0, this);
        if (dialog.DoModal() != IDOK) return std::nullopt;
        return dialog.GetColor();
    };
    m_preview->onDone = [this] {
        m_list.SetSelection({});
        m_list.RowsChanged();
        showCount();
    };
    m_name.LabelledBy(m_nameLabel);
    m_rows.LabelledBy(m_rowsLabel);
    m_text.LabelledBy(m_textLabel);
    m_list.LabelledBy(m_previewLabel);
    m_rows.onEntered = [this](int, int, const InPlaceAnswer& answer) { entered(answer); };
    m_rows.onSelChange = [this] { showState(); };
    m_rows.onColumnsChange = [this] { m_columns.save(m_rows); };
    m_remove.onClick = [this] { removeRows(); };
    m_text.onChange = [this] { expressionEdited(); };
    m_contrary.onClick = [this] {
        m_preview->start(m_expression, m_contrary.GetCheck() != 0, true);
        showCount();
    };
}

void CLayerFilterDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_LAYERFILTER_TITLE", L"도면층 필터 특성"));
    m_nameLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYERFILTER_NAME", L"필터 이름(&N):"));
    m_rowsLabel.SetWindowText(
        VORD_ResourceString("IDS_TAVO_LAYERFILTER_ROWS",
                            L"필터 정의(&D) - 한 행의 조건은 모두 맞아야 하고, 행은 하나만 맞으면 됩니다:"));
    std::vector<tv::ui::ListColumn> columns;
    for (int i = 0; i < kFilterProperties; ++i) {
        const FilterProperty property = LayerFilterRows::propertyOf(i);
        columns.push_back({LayerFilterRows::title(property), 80});
        if (property == FilterProperty::name || property == FilterProperty::description)
            columns.back().width = 130;
        if (filterKind(property) == FilterProperty::linetype || filterKind(property) == FilterProperty::color)
            columns.back().width = 110;
        if (isFilterState(property)) columns.back().width = 70;
    }
    m_rows.SetColumns(std::move(columns));
    m_remove.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYERFILTER_REMOVE", L"행 삭제(&R)"));
    m_remove.SetToolTip(
        VORD_ResourceString("IDS_TAVO_LAYERFILTER_REMOVE_TIP", L"선택한 행을 지웁니다 (Delete)"));
    m_textLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYERFILTER_TEXT", L"식(&E):"));
    m_text.SetToolTip(VORD_ResourceString(
        "IDS_TAVO_LAYERFILTER_TEXT_TIP",
        L"* 임의의 문자열, ? 한 문자, # 숫자, @ 글자, . 그 밖의 문자, [ab] 그 가운데 하나, "
        L"~ 앞에 두면 반대, 쉼표는 또는, ` 다음 문자는 그대로입니다. !=는 같지 않음입니다."));
    m_previewLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYERFILTER_PREVIEW", L"필터 미리보기(&P):"));
    m_list.SetColumns(LayerFilterPreview::columns());
    m_contrary.SetWindowText(
        VORD_ResourceString("IDS_TAVO_LAYERFILTER_CONTRARY", L"맞지 않는 도면층 보기(&I)"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLayerFilterDlg::InitCtrl() {
    m_name.SetLimitText(255);
    m_text.SetLimitText(static_cast<int>(LayerFilterExpression::kLongest));
    m_rows.SetCellModel(m_model);
    m_columns.restore(m_rows);
    m_list.SetModel(m_preview);
}

void CLayerFilterDlg::Data2Dlg() {
    m_name.SetWindowText(m_filterName);
    m_name.SelectAll();
    m_expression = LayerFilterExpression(m_given);
    m_preview->readLayers();
    showExpression(true, true, true);
    m_rows.SetFocusCell(0, 0);
    m_rows.SetSelection({0});
    m_name.SetFocus();
    showState();
}

// --- what is shown -------------------------------------------------------------------------------------------

void CLayerFilterDlg::showExpression(bool text, bool rows, bool atOnce) {
    if (text) m_text.SetWindowText(m_expression.text());
    if (rows && m_expression.understood()) {
        m_model->setRows(m_expression.rows());
        m_rows.RowsChanged();
    }
    // What can't be understood has no rows that could be edited without losing it.
    m_rows.EnableWindow(m_expression.understood());
    say(m_expression.problem());
    m_preview->start(m_expression, m_contrary.GetCheck() != 0, atOnce);
    showCount();
}

void CLayerFilterDlg::showState() {
    m_remove.EnableWindow(m_expression.understood() &&
                          std::ranges::any_of(m_rows.selection().rows(),
                                              [this](int row) { return row + 1 < m_model->rowCount(); }));
}

void CLayerFilterDlg::showCount() {
    m_count.SetWindowText(
        m_preview->busy()
            ? VORD_ResourceString("IDS_TAVO_LAYERFILTER_COUNTING", L"도면층을 찾는 중...").c_str()
            : tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_COUNT", L"도면층 %d개 / 전체 %d개"),
                               m_preview->rowCount(), m_preview->layerCount()));
}

// --- what is done --------------------------------------------------------------------------------------------

void CLayerFilterDlg::entered(const InPlaceAnswer& answer) {
    if (answer.refusal.empty())
        rowsEdited();
    else
        say(answer.refusal);
    m_toRead = !answer.refusal.empty() && (m_confirming || GetFocus() == &m_ok);
}

void CLayerFilterDlg::rowsEdited() {
    if (m_model->completeRows()) m_rows.RowsInserted(m_model->rowCount() - 1);
    m_expression = LayerFilterExpression(m_model->rows());
    m_changed = true;
    showExpression(true, false);
    showState();
}

void CLayerFilterDlg::expressionEdited() {
    const std::wstring text = m_text.GetWindowText();
    m_changed = text != m_given;
    m_expression = LayerFilterExpression(text);
    showExpression(false, true);
    showState();
}

void CLayerFilterDlg::removeRows() {
    m_rows.EndLabelEditing();
    const std::vector<int> rows = m_rows.selection().rows();
    bool removed = false;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        if (m_model->removeRow(*row)) {
            m_rows.RowsRemoved(*row);
            removed = true;
        }
    if (!removed) return;
    const int next = std::min(rows.front(), m_model->rowCount() - 1);
    m_rows.SetSelection({next});
    m_rows.SetFocusCell(next, std::max(0, m_rows.focusColumn()));
    rowsEdited();
}

bool CLayerFilterDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    if (key.key == Key::del && !key.ctrl && !key.alt && !key.shift && GetFocus() == &m_rows) {
        removeRows();
        return true;
    }
    return VORDRunDlg::PreTranslateMessage(key);
}

int CLayerFilterDlg::Dlg2Data() {
    // A text that is refused on the way to OK is shown first.
    m_confirming = true;
    m_rows.EndLabelEditing();
    m_confirming = false;
    if (std::exchange(m_toRead, false)) return 0;

    const std::wstring name = trimmed(m_name.GetWindowText());
    std::wstring refusal = validateName ? validateName(name) : std::wstring();
    CEdit* field = &m_name;
    if (refusal.empty() && m_changed && !m_expression.understood()) {
        refusal = m_expression.problem();
        field = &m_text;
    }
    if (!refusal.empty()) {
        warn(this, {GetWindowText(), refusal});
        field->SetFocus();
        field->SelectAll();
        return 0;
    }
    m_filterName = name;
    // Conditions no layer can meet have no rows.
    if (m_changed)
        m_given = m_expression.rows().empty() ? m_expression.text() : filterText(m_expression.rows());
    return 1;
}
