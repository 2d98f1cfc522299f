#pragma once

#include "kxgui/Export.h"
#include "kxgui/frame/IMECursorHandler_ZEL.h"
#include "kxgui/frame/VORDBaseTooltip.h"
#include "platform/frx/MChildDlg.h"

// The base of every page embedded in another dialog. `name` is that of its place in the parent dialog.
class KXGUI_EXPORT VORDBaseChildDlg : public zel::frx::MChildDlg {
  public:
    VORDBaseChildDlg(unsigned templateId, CWnd& parent, const char* name);
    ~VORDBaseChildDlg() override;

    int OnInitDialog() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;
    // An input method starts or stops composing in one of the page's controls.
    void OnImeComposing(bool composing);
    std::intptr_t WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;

    void EnableToolTips(int enable);
    int AddToolTip(const char* control, int image, const wchar_t* text, int flags = 0);
    int AddToolTip(const char* control, const wchar_t* title, const wchar_t* text, int flags = 0);
    int AddToolTip(const CRect& area, const wchar_t* text);

  protected:
    VORDBaseTooltip tooltip;
    IMECursorHandler_ZEL imeCursor;
};
