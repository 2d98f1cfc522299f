#pragma once

#include "Stair.h"

//! [header]
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/Static.h"

// Asks for the height of a storey and of a step. SetData before the run; GetData after one that ended
// with IDOK.
class CStairDlg : public VORDRunDlg {
  public:
    explicit CStairDlg(CWnd* parent);

    void SetData(const T_STAIR_D& data) { m_data = data; }
    const T_STAIR_D& GetData() const { return m_data; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    void refreshResult();
    T_STAIR_D entered() const;

    T_STAIR_D m_data;
    CStatic m_heightLabel{*this, "IDC_STAIR_HEIGHT_LABEL"};
    CEdit m_height{*this, "IDC_STAIR_HEIGHT"};
    CStatic m_riserLabel{*this, "IDC_STAIR_RISER_LABEL"};
    CEdit m_riser{*this, "IDC_STAIR_RISER"};
    CStatic m_result{*this, "IDC_STAIR_RESULT"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
//! [header]

// Registers the dialog's template; false when its number or name is taken.
bool registerStairTemplates();
