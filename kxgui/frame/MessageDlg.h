#pragma once

#include "kxgui/Export.h"
#include "platform/frx/TaskDialog.h"

// A two-choice question: a title, an optional subtitle, an optional image and two large buttons. Run by
// QuestionDlg.
class KXGUI_EXPORT CMessageDlg : public CTaskDialogVE {
  public:
    explicit CMessageDlg(CWnd* parent);

    // 0: the first button, 1: the second, also while nothing was chosen.
    unsigned GetSelectBtn() const { return selectBtn; }
    const std::wstring& GetCaption() const { return caption; }
    const std::wstring& GetTitle() const { return title; }
    const std::wstring& GetSubTitle() const { return subTitle; }
    const std::wstring& GetBtnTitle1() const { return btnTitle1; }
    const std::wstring& GetBtnTitle2() const { return btnTitle2; }
    // Relative to the dialog font.
    double GetTitleFont() const { return titleFont; }
    double GetSubTitleFont() const { return subTitleFont; }
    double GetBtnTitleFont1() const { return btnTitleFont1; }
    double GetBtnTitleFont2() const { return btnTitleFont2; }

    void SetCaption(std::wstring_view text) { caption = text; }
    void SetTitle(std::wstring_view text) { title = text; }
    void SetSubTitle(std::wstring_view text) { subTitle = text; }
    void SetBtnTitle1(std::wstring_view text) { btnTitle1 = text; }
    void SetBtnTitle2(std::wstring_view text) { btnTitle2 = text; }
    void SetTitleFont(double scale) { titleFont = scale; }
    void SetSubTitleFont(double scale) { subTitleFont = scale; }
    void SetBtnTitleFont1(double scale) { btnTitleFont1 = scale; }
    void SetBtnTitleFont2(double scale) { btnTitleFont2 = scale; }
    void ShowImage(int show) { showImage = show; }
    void ShowSubTitle(int show) { showSubTitle = show; }

    int DoModal() override;
    int OnInitDialog() override;
    int Dlg2Data() { return 0; }

    static constexpr int endCode = 100; // of a run that a button ended

  private:
    void choose(unsigned button);

    unsigned selectBtn = 1;
    std::wstring caption, title, subTitle, btnTitle1, btnTitle2;
    double titleFont = 1.4, subTitleFont = 1.0, btnTitleFont1 = 1.3, btnTitleFont2 = 1.3;
    int showImage = 1, showSubTitle = 1;

    CImage m_image{*this, "IDC_MESSAGE_IMAGE"};
    CStatic m_title{*this, "IDC_MESSAGE_TITLE"};
    CStatic m_subTitle{*this, "IDC_MESSAGE_SUBTITLE"};
    CCommandButton m_button1{*this, "IDC_MESSAGE_BTN1"};
    CCommandButton m_button2{*this, "IDC_MESSAGE_BTN2"};
};
