#include "tavocad/gallery/GalleryPage.h"

#include "tavocad/gallery/GalleryTexts.h"

namespace {
constexpr unsigned filledMessage = CWnd::userMessage + 1;
}

CGalleryPage::CGalleryPage(unsigned templateId, CWnd& parent, const char* name)
    : VORDBaseChildDlg(templateId, parent, name) {}

void CGalleryPage::wire(const Shown& shown) {
    shown.combo->LabelledBy(*shown.label);
    shown.combo->onSelChange = [this, combo = shown.combo] {
        OnChosen(*combo);
        showValues();
    };
    shown.combo->onEditChange = [this] { showValues(); };
}

void CGalleryPage::SetText() {
    for (const Shown& shown : m_exhibits)
        shown.label->SetWindowText(shown.text.text());
    showValues();
}

void CGalleryPage::Fill() {
    for (const Shown& shown : m_exhibits)
        shown.combo->PostUpdate();
    PostMessage(filledMessage); // arrives behind the updates
}

std::intptr_t CGalleryPage::WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    if (message != filledMessage) return VORDBaseChildDlg::WindowProc(message, wParam, lParam);
    OnFilled();
    if (!m_enabled) disableLists();
    showValues();
    return 0;
}

void CGalleryPage::SetType(VORDCobxBase::ControlType type) {
    for (const Shown& shown : m_exhibits)
        shown.combo->SetType(type);
    Fill();
}

void CGalleryPage::EnableLists(bool enable) {
    m_enabled = enable;
    if (!enable) return disableLists();
    for (const Shown& shown : m_exhibits)
        shown.combo->EnableWindow(true);
    Fill(); // some say themselves that they can't be used
}

void CGalleryPage::disableLists() {
    for (const Shown& shown : m_exhibits)
        shown.combo->EnableWindow(false);
}

void CGalleryPage::showValues() {
    for (const Shown& shown : m_exhibits) {
        const bool chosen = shown.combo->GetCurSel() >= 0 || !shown.combo->GetWindowText().empty();
        shown.value->SetWindowText(chosen ? gallery::shortened(shown.chosen()) : gallery::nothingChosen());
    }
}
