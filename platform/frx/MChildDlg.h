#pragma once

#include "platform/toolkit/Page.h"

namespace zel::frx {

// A page with the texts of its own template.
class KXPLATFORM_EXPORT MChildDlg : public CPage {
  public:
    using CPage::CPage;

    int OnInitDialog() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override { return CPage::PreTranslateMessage(key); }

    bool resizable = false;
    bool clipChildren = false;
};

} // namespace zel::frx
