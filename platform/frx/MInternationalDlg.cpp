#include "platform/frx/MInternationalDlg.h"

#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"

namespace zel::frx {
namespace {

void apply(CWnd& wnd, const std::wstring& section, const wchar_t* control) {
    wnd.SetWindowText(
        CNativeRCMsgMgr::getInstance()->GetVal(section.c_str(), control, wnd.GetWindowText().c_str()));
}

void applyBelow(CWnd& parent, const std::wstring& section) {
    for (CWnd* child : parent.children()) {
        if (child->kind() == tv::ui::ControlKind::page) continue; // a template of its own
        apply(*child, section, tv::text::fromUtf8(child->name()).c_str());
        applyBelow(*child, section);
    }
}

} // namespace

void applyControlTexts(CWnd& root, const std::string& templateName) {
    applyBelow(root, tv::text::fromUtf8(templateName));
}

int MInternationalDlg::OnInitDialog() {
    const int result = MDialog::OnInitDialog();
    apply(*this, tv::text::fromUtf8(templateName()), L"CAPTION");
    applyControlTexts(*this, templateName());
    return result;
}

} // namespace zel::frx
