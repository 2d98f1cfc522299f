#pragma once

#include "kxgui/frame/LineWeightNames.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/Static.h"

#include <optional>

// Chooses a lineweight.
class KXGUI_EXPORT CLineWeightDlg : public VORDRunDlg {
  public:
    // Opens on the current lineweight of `database` (CELWEIGHT; null: nothing is selected).
    CLineWeightDlg(const OdDbDatabasePtr& database, CWnd* parent,
                   kx::frame::LineWeightOffer offer = kx::frame::LineWeightOffer::withAll);

    // Opens on this one instead.
    void SetLineWeight(OdDb::LineWeight weight) { m_weight = weight; }
    // What was chosen after IDOK; else what it opened on, the default when that was nothing.
    OdDb::LineWeight GetLineWeight() const { return m_weight.value_or(OdDb::kLnWtByLwDefault); }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    std::optional<OdDb::LineWeight> m_weight;
    std::vector<OdDb::LineWeight> m_rows;

    CStatic m_label{*this, "IDC_LINEWEIGHT_LABEL"};
    CListCtrl m_list{*this, "IDC_LINEWEIGHT_LIST"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
