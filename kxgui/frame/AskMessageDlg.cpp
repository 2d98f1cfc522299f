#include "kxgui/frame/AskMessageDlg.h"

#include "kxgui/frame/Templates.h"
#include "platform/text/ResourceString.h"

CAskMessageDlg::CAskMessageDlg(CWnd* parent) : VORDBoxDlg(IDD_ASK_MESSAGE, parent) {
    m_yes.onClick = [this] { EndDialog(IDYES); };
    m_no.onClick = [this] { EndDialog(IDNO); };
    m_notAgain.onClick = [this] { doNotAsk = m_notAgain.GetCheck() == CCheckBox::checked; };
}

void CAskMessageDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_CAD_GUI_BASECHILD_DESC", L"타보캐드"));
    m_message.SetWindowText(message);
    m_yes.SetWindowText(VORD_ResourceString("IDC_ASK_MSG_DLG_YES", L"예(&Y)"));
    m_no.SetWindowText(VORD_ResourceString("IDC_ASK_MSG_DLG_NO", L"아니요(&N)"));
    m_notAgain.SetWindowText(VORD_ResourceString("IDC_ASK_MSG_DLG_NOT_AGAIN", L"이 메시지를 다시 표시하지 않음."));
}

void CAskMessageDlg::InitCtrl() {
    m_image.SetIcon(tv::ui::Icon::question);
    SetDefaultButton(m_yes);
}
