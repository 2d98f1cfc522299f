#include "kxgui/layers/LayerMergeDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerHistory.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/SortedRows.h"

#include <utility>

using namespace kx::layers;

namespace {

// Layers by name.
class LayerNames : public tv::ui::ListModel {
  public:
    LayerNames(const OdDbDatabase& database, const std::vector<OdDbObjectId>& layers)
        : m_table(database.layers()), m_layers(layers) {}
    int rowCount() const override { return m_table ? static_cast<int>(m_layers.size()) : 0; }
    tv::ui::ListCell cell(int row, int) const override {
        return {m_table->nameOf(m_layers[static_cast<std::size_t>(row)]).wstr()};
    }

  private:
    OdDbLayerTablePtr m_table;
    std::vector<OdDbObjectId> m_layers;
};

std::shared_ptr<tv::ui::SortedRows> showNames(CListCtrl& list, const OdDbDatabase& database,
                                              const std::vector<OdDbObjectId>& layers) {
    auto rows = std::make_shared<tv::ui::SortedRows>(std::make_shared<LayerNames>(database, layers));
    list.SetModel(rows);
    list.SortBy(0, true);
    return rows;
}

} // namespace

CLayerMergeDlg::CLayerMergeDlg(const OdDbDatabasePtr& database, std::vector<OdDbObjectId> layers, CWnd* parent)
    : VORDRunDlg(IDD_LAYER_MERGE, parent), m_database(database), m_layers(std::move(layers)) {
    m_names.LabelledBy(m_namesLabel);
    m_targetList.LabelledBy(m_targetsLabel);
    m_targetList.onDoubleClick = [this](int, int) { OnOK(); };
}

void CLayerMergeDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYER_56", L"도면층 - 병합"));
    m_namesLabel.SetWindowText(
        tv::text::format(VORD_ResourceString("IDS_TAVO_LAYMRG_LABEL", L"병합할 도면층 %d개(&M):"),
                         static_cast<int>(m_layers.size())));
    m_targetsLabel.SetWindowText(VORD_ResourceString("IDS_TAVO_LAYMRG_TARGETS", L"대상 도면층(&T):"));
    const std::wstring name = kx::layers::layerColumnText(LayerColumn::name);
    m_names.SetColumns({{name, 260}});
    m_targetList.SetColumns({{name, 260}});
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLayerMergeDlg::InitCtrl() {
    if (!m_database) return;
    m_targets = mergeTargets(*m_database, m_layers);
    showNames(m_names, *m_database, m_layers);
    m_rows = showNames(m_targetList, *m_database, m_targets);
}

void CLayerMergeDlg::Data2Dlg() { m_targetList.SetFocus(); }

int CLayerMergeDlg::Dlg2Data() {
    if (!m_database) return 0;
    const std::wstring caption = GetWindowText();
    const int row = m_targetList.GetCurSel();
    m_target = row < 0 || !m_rows ? OdDbObjectId() : m_targets[static_cast<std::size_t>(m_rows->identity(row))];
    if (const tv::Problem problem = canMerge(*m_database, m_layers, m_target)) {
        warn(this, {caption, problem.sentence});
        m_targetList.SetFocus();
        return 0;
    }
    const std::wstring question = tv::text::format(
        VORD_ResourceString("IDS_TAVO_LAYMRG_ASK",
                            L"도면층 %d개를 \"%s\" 도면층으로 병합하시겠습니까?\n객체 %d개가 옮겨지고 병합한 "
                            L"도면층은 도면에서 없어집니다."),
        static_cast<int>(m_layers.size()), m_targetList.cellText(row, 0),
        static_cast<int>(tv::dwg::countEntitiesNaming(m_layers)));
    if (!confirm(this, {caption, question})) return 0;
    m_result = mergeLayers(*m_database, m_layers, m_target);
    if (m_result.problem)
        warn(this, {caption, m_result.problem.sentence});
    else
        layersWritten(m_database);
    return m_result.problem ? 0 : 1;
}
