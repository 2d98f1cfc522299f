#pragma once

#include "kxgui/frame/VORDBoxDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

// A question with up to four answers plus Cancel. Each answer stands for a result code of the caller's.
class KXGUI_EXPORT CMultiAskDlg : public VORDBoxDlg {
  public:
    explicit CMultiAskDlg(CWnd* parent);
    // `labels` and `retIds` go together by index; labels beyond the fourth find no button.
    CMultiAskDlg(std::wstring_view caption, std::wstring_view message, std::vector<std::wstring> labels,
                 std::vector<int> retIds, CWnd* parent);
    void SetData(std::wstring_view caption, std::wstring_view message, std::vector<std::wstring> labels,
                 std::vector<int> retIds);

    // The code of the chosen answer; 0 until one is chosen.
    int GetRetID() const { return retId; }

    int OnInitDialog() override;
    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override {}
    int Dlg2Data() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;

  private:
    int focusedAnswer() const; // its index, -1 when no answer button has the focus

    int retId = 0;
    std::wstring caption, message;
    std::vector<std::wstring> labels;
    std::vector<int> retIds;
    std::vector<CCommandButton*> buttonIds; // the answer buttons from top to bottom

    CStatic m_message{*this, "IDC_MULTI_ASK_MESSAGE"};
    CCommandButton m_answer1{*this, "IDC_MULTI_ASK_BTN1"};
    CCommandButton m_answer2{*this, "IDC_MULTI_ASK_BTN2"};
    CCommandButton m_answer3{*this, "IDC_MULTI_ASK_BTN3"};
    CCommandButton m_answer4{*this, "IDC_MULTI_ASK_BTN4"};
    CButton m_cancel{*this, "IDCANCEL"};
};
