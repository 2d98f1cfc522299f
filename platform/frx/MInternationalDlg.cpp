#include "platform/frx/MInternationalDlg.h"

#include "platform/text/MessageManager.h"

namespace zel::frx {
namespace {

void apply(CWnd& wnd, const std::string& section, std::string_view control) {
    if (const wchar_t* text = CNativeRCMsgMgr::getInstance()->controlText(section, control))
        wnd.SetWindowText(text);
}

void applyBelow(CWnd& parent, const std::string& section) {
    for (CWnd* child : parent.children()) {
        if (child->kind() == tv::ui::ControlKind::page) continue; // a template of its own
        apply(*child, section, child->name());
        applyBelow(*child, section);
    }
}

} // namespace

void applyControlTexts(CWnd& root, const std::string& templateName) {
    if (CNativeRCMsgMgr::getInstance()->hasDialog(templateName)) applyBelow(root, templateName);
}

int MInternationalDlg::OnInitDialog() {
    const int result = MDialog::OnInitDialog();
    apply(*this, templateName(), "CAPTION");
    applyControlTexts(*this, templateName());
    return result;
}

} // namespace zel::frx
