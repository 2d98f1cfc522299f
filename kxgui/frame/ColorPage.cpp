#include "kxgui/frame/ColorPage.h"

#include "kxgui/frame/Messages.h"
#include "platform/toolkit/Dialog.h"

void CColorPage::Show(const OdCmColor& color) {
    m_faulty = nullptr;
    showColor(color);
}

void CColorPage::choose(const OdCmColor& color) {
    m_faulty = nullptr;
    if (onColor) onColor(color);
}

void CColorPage::setFault(CEdit& field, std::wstring sentence) {
    m_faulty = &field;
    m_fault = std::move(sentence);
}

void CColorPage::ShowFault() {
    MessageDlg(dialog(), m_fault.c_str(), dialog()->GetWindowText().c_str(), 0x30);
    m_faulty->SetFocus();
    m_faulty->SelectAll();
}
