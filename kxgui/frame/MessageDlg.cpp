#include "kxgui/frame/MessageDlg.h"

#include "kxgui/frame/ModuleEntry.h"
#include "kxgui/frame/Templates.h"
#include "platform/host/TavoComEvents.h"

CMessageDlg::CMessageDlg(CWnd* parent) : CTaskDialogVE(IDD_MESSAGE, parent) {
    m_button1.onClick = [this] { choose(0); };
    m_button2.onClick = [this] { choose(1); };
}

int CMessageDlg::DoModal() {
    if (!kxGuiModuleReady()) return -1;
    const tv::host::ModalBracket bracket;
    return CTaskDialogVE::DoModal();
}

int CMessageDlg::OnInitDialog() {
    CTaskDialogVE::OnInitDialog();
    SetWindowText(caption);
    m_title.SetWindowText(title);
    m_title.SetFontScale(titleFont, true);
    m_subTitle.SetWindowText(subTitle);
    m_subTitle.SetFontScale(subTitleFont);
    m_button1.SetWindowText(btnTitle1);
    m_button1.SetFontScale(btnTitleFont1);
    m_button2.SetWindowText(btnTitle2);
    m_button2.SetFontScale(btnTitleFont2);
    m_image.SetIcon(tv::ui::Icon::question);
    m_image.ShowWindow(showImage != 0);
    m_subTitle.ShowWindow(showSubTitle != 0);
    SetDefaultButton(m_button1);
    return 1;
}

void CMessageDlg::choose(unsigned button) {
    selectBtn = button;
    EndDialog(endCode);
}
