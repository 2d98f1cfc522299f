#pragma once

#include "kxgui/Export.h"
#include "kxgui/frame/IMECursorHandler_ZEL.h"
#include "kxgui/frame/VORDBaseTooltip.h"
#include "platform/frx/MDlgMove.h"

class CDataExchange; // this library's dialogs bind their controls as members; nothing is exchanged through it

// The base of every top-level dialog. A concrete dialog's OnInitDialog calls the base first and then SetText(),
// InitCtrl() and Data2Dlg() in this order; its OnOK calls Dlg2Data() and hands on to the base only when that
// returned nonzero. VORDRunDlg does both for a dialog without further wishes.
class KXGUI_EXPORT VORDBaseDlg : public zel::frx::MDlgMove {
  public:
    VORDBaseDlg(unsigned templateId, CWnd* parent);
    ~VORDBaseDlg() override;

    // Brackets the run with the host's begin-modal and end-modal notifications.
    int DoModal() override;
    // No run, no notifications.
    bool Create() override;
    int OnInitDialog() override;
    void OnSize(unsigned type, int cx, int cy) override;
    HitTest OnNcHitTest(CPoint point) override;
    bool OnHelpInfo() override;
    void OnImeComposing(bool composing) override;
    bool wantsTextCursor() const override;
    std::wstring toolTipAt(CPoint point) override;
    // The tooltip sees every key first.
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;
    std::intptr_t WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;

    // Activates the tooltip once the window exists; its title is the product name.
    void EnableToolTips(int enable);
    // A hint for a control by name, with an image number or a title of its own, or for an area of the client
    // rectangle. 1 when it was added; 0 when there is no such control or the window does not exist yet.
    int AddToolTip(const char* control, int image, const wchar_t* text, int flags = 0);
    int AddToolTip(const char* control, const wchar_t* title, const wchar_t* text, int flags = 0);
    int AddToolTip(const CRect& area, const wchar_t* text);

    virtual void SetText() = 0;
    virtual void InitCtrl() = 0;
    virtual void Data2Dlg() = 0;
    // Checks the controls and gathers their values. 0: not acceptable, the dialog stays open (the user has been
    // told why).
    virtual int Dlg2Data() = 0;
    void DoDataExchange(CDataExchange*) {}

  protected:
    void OnDestroy() override;

    int initialized = 0;  // 1 at the end of OnInitDialog
    int sizeRestored = 0; // 1 once the remembered size has been applied
    VORDBaseTooltip tooltip;
    IMECursorHandler_ZEL imeCursor;
};

// A dialog that follows the common life without exception.
class KXGUI_EXPORT VORDRunDlg : public VORDBaseDlg {
  public:
    using VORDBaseDlg::VORDBaseDlg;
    int OnInitDialog() override;
    void OnOK() override;
};
