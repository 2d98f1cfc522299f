#pragma once

#include "platform/frx/MDialog.h"

namespace zel::frx {

// Gives every control of `root` the text the message files have for (template, control). Controls without an entry keep
// their text.
KXPLATFORM_EXPORT void applyControlTexts(CWnd& root, const std::string& templateName);

// A dialog whose texts come from the message files.
class KXPLATFORM_EXPORT MInternationalDlg : public MDialog {
  public:
    using MDialog::MDialog;

    int DoModal() override { return MDialog::DoModal(); }
    int OnInitDialog() override;
};

} // namespace zel::frx
