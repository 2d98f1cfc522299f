#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/frx/TaskDialog.h"

// A message or question box: Ctrl+C copies its text.
class KXGUI_EXPORT VORDBoxDlg : public VORDRunDlg {
  public:
    using VORDRunDlg::VORDRunDlg;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override {
        return VORDRunDlg::PreTranslateMessage(key) || zel::frx::copyKey(*this, key);
    }
};
