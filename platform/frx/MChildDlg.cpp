#include "platform/frx/MChildDlg.h"

#include "platform/frx/MInternationalDlg.h"

namespace zel::frx {

int MChildDlg::OnInitDialog() {
    const int result = CPage::OnInitDialog();
    applyControlTexts(*this, templateName());
    return result;
}

} // namespace zel::frx
