#pragma once

#include "platform/toolkit/Dialog.h"

// A modeless dialog without a frame that stands within the program's main window, such as a row of drop-down
// lists below the menu. The program places it: with Qt it takes `QtToolkit::windowOf(bar)` into one of its
// layouts. The keyboard goes to it when a person asks for it, and Escape or Enter gives it back to the main
// window.
class KXPLATFORM_EXPORT CControlBar : public CDialog {
  public:
    explicit CControlBar(unsigned templateId) : CDialog(templateId, nullptr) {}

    bool embedded() const override { return true; }
    // Gives the keyboard to the bar: to `control`, or to its first one. Nothing while the bar is hidden or
    // can't be reached.
    void TakeKeyboard(CWnd* control = nullptr);
    // Gives it back to the main window.
    void LeaveKeyboard();

    void OnOK() override { LeaveKeyboard(); }
    void OnCancel() override { LeaveKeyboard(); }

  protected:
    void keyboardWent() override;
};
