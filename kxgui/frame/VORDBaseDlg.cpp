#include "kxgui/frame/VORDBaseDlg.h"

#include "kxgui/frame/ModuleEntry.h"
#include "kxgui/frame/SizingBand.h"
#include "kxgui/frame/ToolTips.h"
#include "kxgui/frame/VORDBaseChildDlg.h"
#include "platform/host/CommandRefHelp.h"
#include "platform/host/TavoComEvents.h"

#include <algorithm>

VORDBaseDlg::VORDBaseDlg(unsigned templateId, CWnd* parent) : MDlgMove(templateId, parent) {}

VORDBaseDlg::~VORDBaseDlg() {
    imeCursor.Clear();
    tooltip.Destroy();
}

int VORDBaseDlg::DoModal() {
    if (!kxGuiModuleReady()) return -1;
    const tv::host::ModalBracket bracket;
    return MInternationalDlg::DoModal();
}

bool VORDBaseDlg::Create() { return kxGuiModuleReady() && MInternationalDlg::Create(); }

int VORDBaseDlg::OnInitDialog() {
    initialized = sizeRestored = 0;
    if (sizingFrame() || resizable) {
        clipChildren = true;
        resizable = true;
        SetSizingFrame(true);
    }
    MDlgMove::OnInitDialog();
    tooltip.Create(*this);
    const CSize size = GetWindowRect().Size();
    SetMinimumSize(size.cx, size.cy);
    initialized = 1;
    if (resizable && rememberedWidth() >= 1 && rememberedHeight() >= 1) PostMessage(sizeMessage);
    return 1;
}

void VORDBaseDlg::OnSize(unsigned type, int cx, int cy) {
    MDlgMove::OnSize(type, cx, cy);
    if (!initialized || sizeRestored || rememberedWidth() < 1 || rememberedHeight() < 1 || !resizable) return;
    sizeRestored = 1;
    const CPoint at = GetWindowRect().TopLeft();
    MoveWindow({at.x, at.y, at.x + std::max(rememberedWidth(), minimumSize().cx),
                at.y + std::max(rememberedHeight(), minimumSize().cy)});
}

HitTest VORDBaseDlg::OnNcHitTest(CPoint point) {
    if (resizable) {
        const HitTest hit = kx::frame::sizingBandAt(GetWindowRect(), point);
        if (hit != HitTest::client) return hit;
    }
    return MDlgMove::OnNcHitTest(point);
}

bool VORDBaseDlg::OnHelpInfo() {
    CommandRefHelp::LocalSearch(this, L"");
    return true;
}

void VORDBaseDlg::OnImeComposing(bool composing) {
    imeCursor.SetComposing(composing);
    imeCursor.OnSetCursor();
    // The page that holds the field has a helper of its own.
    for (CWnd* wnd = GetFocus(); wnd; wnd = wnd->GetParent())
        if (auto* page = dynamic_cast<VORDBaseChildDlg*>(wnd)) page->OnImeComposing(composing);
    if (!composing) PostMessage(kx::frame::idleMessage);
}

bool VORDBaseDlg::wantsTextCursor() const { return imeCursor.shape() == IMECursorHandler_ZEL::Shape::text; }

std::wstring VORDBaseDlg::toolTipAt(CPoint point) {
    const auto* tool = tooltip.toolAt(point);
    return tool && tooltip.OnShow(*tool) ? kx::frame::toolTipText(*tool) : std::wstring();
}

bool VORDBaseDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    tooltip.RelayEvent(key);
    return MDlgMove::PreTranslateMessage(key);
}

std::intptr_t VORDBaseDlg::WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    if (message == kx::frame::idleMessage) imeCursor.OnIdle();
    return MDlgMove::WindowProc(message, wParam, lParam);
}

void VORDBaseDlg::OnDestroy() {
    tooltip.Destroy();
    MDlgMove::OnDestroy();
}

void VORDBaseDlg::EnableToolTips(int enable) { kx::frame::enableToolTips(tooltip, enable); }

int VORDBaseDlg::AddToolTip(const char* control, int image, const wchar_t* text, int) {
    return tooltip.AddTool({control, {}, {}, text, image});
}

int VORDBaseDlg::AddToolTip(const char* control, const wchar_t* title, const wchar_t* text, int) {
    return tooltip.AddTool({control, {}, title, text, 0});
}

int VORDBaseDlg::AddToolTip(const CRect& area, const wchar_t* text) {
    return tooltip.AddTool({{}, area, {}, text, 0});
}

int VORDRunDlg::OnInitDialog() {
    VORDBaseDlg::OnInitDialog();
    SetText();
    InitCtrl();
    Data2Dlg();
    return 1;
}

void VORDRunDlg::OnOK() {
    if (Dlg2Data()) VORDBaseDlg::OnOK();
}
