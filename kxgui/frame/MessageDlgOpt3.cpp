#include "kxgui/frame/MessageDlgOpt3.h"

#include "kxgui/frame/MessageDlg.h"
#include "kxgui/frame/Templates.h"

CMessageDlgOpt3::CMessageDlgOpt3(CWnd* parent) : VORDBoxDlg(IDD_WINDOW_XBUTTON, parent) {
    unsigned number = 0;
    for (CCommandButton* button : {&m_button1, &m_button2, &m_button3})
        button->onClick = [this, chosen = number++] {
            selectBtn = chosen;
            EndDialog(CMessageDlg::endCode);
        };
}

void CMessageDlgOpt3::SetText() {
    SetWindowText(caption);
    m_title.SetWindowText(title);
    m_title.SetFontScale(1.4, true);
    m_button1.SetWindowText(btnTitles[0]);
    m_button2.SetWindowText(btnTitles[1]);
    m_button3.SetWindowText(btnTitles[2]);
    SetDefaultButton(m_button1);
}
