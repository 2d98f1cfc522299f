#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "kxgui/layers/LayerMerge.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/SortedRows.h"
#include "platform/toolkit/Static.h"

// Chooses the layer others are merged into, asks, and merges. IDOK when that was done. What canMergeAway
// refuses is for the caller to ask before.
class KXGUI_EXPORT CLayerMergeDlg : public VORDRunDlg {
  public:
    CLayerMergeDlg(const OdDbDatabasePtr& database, std::vector<OdDbObjectId> layers, CWnd* parent);

    // After IDOK.
    OdDbObjectId GetTarget() const { return m_target; }
    const kx::layers::MergeResult& GetResult() const { return m_result; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    OdDbDatabasePtr m_database;
    std::vector<OdDbObjectId> m_layers, m_targets;
    OdDbObjectId m_target;
    kx::layers::MergeResult m_result;
    std::shared_ptr<tv::ui::SortedRows> m_rows; // of the targets

    CStatic m_namesLabel{*this, "IDC_LAYER_MERGE_NAMES_LABEL"};
    CListCtrl m_names{*this, "IDC_LAYER_MERGE_NAMES"};
    CStatic m_targetsLabel{*this, "IDC_LAYER_MERGE_TARGETS_LABEL"};
    CListCtrl m_targetList{*this, "IDC_LAYER_MERGE_TARGETS"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
