#pragma once

#include "kxgui/frame/VORDBoxDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

#include <array>

// A question with three large buttons on the template of the window-close question.
class KXGUI_EXPORT CMessageDlgOpt3 : public VORDBoxDlg {
  public:
    explicit CMessageDlgOpt3(CWnd* parent);

    // 0, 1 or 2: the chosen button; the last one while nothing was chosen.
    unsigned GetSelectBtn() const { return selectBtn; }
    void SetCaption(std::wstring_view text) { caption = text; }
    void SetTitle(std::wstring_view text) { title = text; }
    void SetBtnTitle(unsigned button, std::wstring_view text) {
        if (button < btnTitles.size()) btnTitles[button] = text;
    }

    void SetText() override;
    void InitCtrl() override { m_notAgain.ShowWindow(false); }
    void Data2Dlg() override {}
    int Dlg2Data() override { return 0; }

  private:
    unsigned selectBtn = 2;
    std::wstring caption, title;
    std::array<std::wstring, 3> btnTitles;

    CStatic m_title{*this, "IDC_WINDOW_X_HEADING"};
    CCommandButton m_button1{*this, "IDC_WINDOW_X_CLOSE"};
    CCommandButton m_button2{*this, "IDC_WINDOW_X_DELETE"};
    CCommandButton m_button3{*this, "IDC_WINDOW_X_EXPORT"};
    CCheckBox m_notAgain{*this, "IDC_WINDOW_X_NOT_AGAIN"}; // the template's; nothing is remembered here
};
