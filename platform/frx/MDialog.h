#pragma once

#include "platform/toolkit/Dialog.h"

namespace zel::frx {

// The framework's dialog: a smallest size, and a sizing border on request.
class KXPLATFORM_EXPORT MDialog : public CDialog {
  public:
    using CDialog::CDialog;

    // In logical pixels, of the whole window; 0: no limit.
    void SetMinimumSize(int width, int height) { SetMinimum({width, height}); }

    bool resizable = false;    // set before DoModal by dialogs that want a sizing border
    bool clipChildren = false; // children are left out when the window's own background is drawn
};

} // namespace zel::frx
