#pragma once

#include "kxgui/frame/VORDBoxDlg.h"
#include "platform/text/OdString.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

// A yes/no question that need not be asked again. End codes: IDYES, IDNO, IDCANCEL when dismissed.
class KXGUI_EXPORT CAskMessageDlg : public VORDBoxDlg {
  public:
    explicit CAskMessageDlg(CWnd* parent = nullptr);

    void setMsg(const OdString& text) { message = text; }
    // What the check box was last clicked to.
    bool getDoNotAsk() const { return doNotAsk; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override {}
    int Dlg2Data() override { return 1; }

  private:
    OdString message;
    bool doNotAsk = false;

    CImage m_image{*this, "IDC_ASK_MSG_DLG_IMAGE"};
    CStatic m_message{*this, "IDC_ASK_MSG_DLG_MESSAGE"};
    CButton m_yes{*this, "IDYES"};
    CButton m_no{*this, "IDNO"};
    CCheckBox m_notAgain{*this, "IDC_ASK_MSG_DLG_NOT_AGAIN"};
};
