#include "kxgui/frame/VORDBaseChildDlg.h"

#include "kxgui/frame/ToolTips.h"
#include "platform/toolkit/ModuleChain.h"

VORDBaseChildDlg::VORDBaseChildDlg(unsigned templateId, CWnd& parent, const char* name)
    : MChildDlg(templateId, parent, name) {}

VORDBaseChildDlg::~VORDBaseChildDlg() {
    imeCursor.Clear();
    tooltip.Destroy();
}

int VORDBaseChildDlg::OnInitDialog() {
    const auto* found = tv::ui::ModuleChain::instance().find(templateId());
    if (resizable || (found && found->sizingFrame)) clipChildren = true;
    MChildDlg::OnInitDialog();
    tooltip.Create(*this);
    return 1;
}

bool VORDBaseChildDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    if (tooltip.exists()) tooltip.RelayEvent(key);
    return MChildDlg::PreTranslateMessage(key);
}

void VORDBaseChildDlg::OnImeComposing(bool composing) {
    imeCursor.SetComposing(composing);
    imeCursor.OnSetCursor();
    if (!composing) PostMessage(kx::frame::idleMessage);
}

std::intptr_t VORDBaseChildDlg::WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    if (message == kx::frame::setCursorMessage && imeCursor.OnSetCursor()) return 1;
    if (message == kx::frame::idleMessage) imeCursor.OnIdle();
    return MChildDlg::WindowProc(message, wParam, lParam);
}

void VORDBaseChildDlg::EnableToolTips(int enable) { kx::frame::enableToolTips(tooltip, enable); }

int VORDBaseChildDlg::AddToolTip(const char* control, int image, const wchar_t* text, int) {
    return tooltip.AddTool({control, {}, {}, text, image});
}

int VORDBaseChildDlg::AddToolTip(const char* control, const wchar_t* title, const wchar_t* text, int) {
    return tooltip.AddTool({control, {}, title, text, 0});
}

int VORDBaseChildDlg::AddToolTip(const CRect& area, const wchar_t* text) {
    return tooltip.AddTool({{}, area, {}, text, 0});
}
