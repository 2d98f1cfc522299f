#include "platform/frx/TaskDialog.h"

#include "platform/text/ResourceString.h"

#include <array>

using namespace zel::frx;

struct CTaskDialogVE::Parts {
    explicit Parts(CWnd& dialog)
        : icon(dialog, "IDC_ICON"), instruction(dialog, "IDC_MAIN_INSTRUCTION"), content(dialog, "IDC_CONTENT"),
          ok(dialog, "IDOK"), yes(dialog, "IDYES"), no(dialog, "IDNO"), retry(dialog, "IDRETRY"),
          cancel(dialog, "IDCANCEL") {}
    CImage icon;
    CStatic instruction, content;
    CButton ok, yes, no, retry, cancel;
};

namespace {

tv::ui::Icon iconOf(unsigned taskIcon) {
    switch (taskIcon) {
    case taskIconError:
        return tv::ui::Icon::error;
    case taskIconWarning:
        return tv::ui::Icon::warning;
    case taskIconInformation:
        return tv::ui::Icon::information;
    case taskIconQuestion:
        return tv::ui::Icon::question;
    default:
        return tv::ui::Icon::none;
    }
}

bool isButton(const CWnd& wnd) {
    return wnd.kind() == tv::ui::ControlKind::button || wnd.kind() == tv::ui::ControlKind::commandButton;
}

} // namespace

CTaskDialogVE::CTaskDialogVE(CWnd* owner, std::wstring_view caption, std::wstring_view instruction,
                             std::wstring_view content, unsigned buttons, unsigned icon, int defaultButton)
    : MDialog(taskDialogTemplate, owner), m_parts(std::make_unique<Parts>(*this)), m_caption(caption),
      m_instruction(instruction), m_content(content), m_buttons(buttons), m_icon(icon),
      m_defaultButton(defaultButton) {}

CTaskDialogVE::CTaskDialogVE(unsigned templateId, CWnd* owner) : MDialog(templateId, owner) {}

CTaskDialogVE::~CTaskDialogVE() = default;

int CTaskDialogVE::OnInitDialog() {
    const int result = MDialog::OnInitDialog();
    if (!m_parts) return result;
    SetWindowText(m_caption);
    m_parts->icon.SetIcon(iconOf(m_icon));
    m_parts->icon.ShowWindow(iconOf(m_icon) != tv::ui::Icon::none);
    m_parts->instruction.SetWindowText(m_instruction);
    m_parts->instruction.SetFontScale(1.3, true);
    m_parts->content.SetWindowText(m_content);
    m_parts->content.ShowWindow(!m_content.empty());

    m_parts->ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_parts->yes.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_YES", L"예(&Y)"));
    m_parts->no.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_NO", L"아니요(&N)"));
    m_parts->retry.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_RETRY", L"다시 시도(&R)"));
    m_parts->cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));

    struct Choice {
        CButton& button;
        unsigned flag;
        int code;
    };
    int number = 0;
    for (const Choice& choice : std::array<Choice, 5>{{{m_parts->ok, taskOK, IDOK},
                                                       {m_parts->yes, taskYes, IDYES},
                                                       {m_parts->no, taskNo, IDNO},
                                                       {m_parts->retry, taskRetry, IDRETRY},
                                                       {m_parts->cancel, taskCancel, IDCANCEL}}}) {
        const bool offered = (m_buttons & choice.flag) != 0;
        choice.button.ShowWindow(offered);
        choice.button.EnableWindow(offered);
        choice.button.onClick = [this, code = choice.code] { EndDialog(code); };
        if (!offered) continue;
        const int place = number++;
        if (place != 0 && place != m_defaultButton) continue;
        SetDefaultButton(choice.button);
        choice.button.SetFocus();
    }
    return result;
}

void CTaskDialogVE::OnCancel() {
    if (!m_parts || (m_buttons & taskCancel) || m_buttons == 0)
        EndDialog(IDCANCEL);
    else if (m_buttons == taskOK)
        EndDialog(IDOK);
}

bool CTaskDialogVE::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    return copyKey(*this, key) || MDialog::PreTranslateMessage(key);
}

namespace zel::frx {

std::wstring boxText(const CDialog& box) {
    std::wstring out = box.GetWindowText();
    std::wstring buttons;
    for (const CWnd* child : box.children()) {
        if (!child->IsWindowVisible() || child->GetWindowText().empty()) continue;
        if (isButton(*child))
            buttons += L"[" + tv::ui::plainLabel(child->GetWindowText()) + L"] ";
        else
            out += (out.empty() ? L"" : L"\n\n") + child->GetWindowText();
    }
    if (!buttons.empty()) {
        buttons.pop_back();
        out += L"\n\n" + buttons;
    }
    return out;
}

bool copyKey(const CDialog& box, const tv::ui::KeyEvent& key) {
    if (key.key != tv::ui::Key::character || !key.ctrl || key.alt || key.ch != L'C') return false;
    tv::ui::Toolkit::current()->setClipboardText(boxText(box));
    return true;
}

} // namespace zel::frx
