#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

#include <array>

// A question with three large buttons on the layout of the window-close question.
class KXGUI_EXPORT CMessageDlgOpt3 : public VORDRunDlg {
  public:
    explicit CMessageDlgOpt3(CWnd* parent);

    // 0, 1 or 2: the chosen button; the last one while nothing was chosen.
    unsigned GetSelectBtn() const { return selectBtn; }
    void SetCaption(std::wstring_view text) { caption = text; }
    void SetTitle(std::wstring_view text) { title = text; }
    void SetBtnTitle(unsigned button, std::wstring_view text) { btnTitles.at(button) = text; }

    void SetText() override;
    void InitCtrl() override {}
    void Data2Dlg() override {}
    int Dlg2Data() override { return 0; }

  private:
    unsigned selectBtn = 2;
    std::wstring caption, title;
    std::array<std::wstring, 3> btnTitles;

    CStatic m_title{*this, "IDC_MESSAGE_TITLE"};
    CCommandButton m_button1{*this, "IDC_MESSAGE_BTN1"};
    CCommandButton m_button2{*this, "IDC_MESSAGE_BTN2"};
    CCommandButton m_button3{*this, "IDC_MESSAGE_BTN3"};
};
