#include "platform/toolkit/ControlBar.h"

using tv::ui::Toolkit;

void CControlBar::TakeKeyboard(CWnd* control) {
    Toolkit* toolkit = Toolkit::current();
    if (!toolkit || !running() || !shown() || !toolkit->reachable(*this)) return;
    if (!control) {
        const auto order = tabOrder();
        if (order.empty()) return;
        control = order.front();
    }
    (void)control->userFocus();
}

void CControlBar::LeaveKeyboard() {
    Toolkit* toolkit = Toolkit::current();
    if (toolkit && toolkit->active() == this) toolkit->activate(nullptr);
}

// A bar has no focus of its own to come back to.
void CControlBar::keyboardWent() {
    CDialog::keyboardWent();
    ClearFocus();
}
