#include "kxgui/frame/MultiAskDlg.h"

#include "kxgui/frame/Templates.h"
#include "platform/text/ResourceString.h"

#include <algorithm>

namespace {

constexpr int belowLastButton = 40; // pixels

// The places of the template, in dialog units.
CRect inUnits(int left, int top, int width, int height) {
    const CSize at = tv::ui::dialogUnitsToPixels({left, top});
    const CSize size = tv::ui::dialogUnitsToPixels({width, height});
    return {at.cx, at.cy, at.cx + size.cx, at.cy + size.cy};
}

} // namespace

CMultiAskDlg::CMultiAskDlg(CWnd* parent) : VORDBoxDlg(IDD_MULTI_ASK, parent) {
    m_message.MoveWindow(inUnits(7, 7, 295, 34));
    int top = 44;
    for (CCommandButton* answer : {&m_answer1, &m_answer2, &m_answer3, &m_answer4}) {
        answer->MoveWindow(inUnits(7, top, 295, 18));
        answer->onClick = [this] { OnOK(); };
        top += 20;
    }
    m_cancel.MoveWindow(inUnits(252, 126, 50, 14));
}

CMultiAskDlg::CMultiAskDlg(std::wstring_view caption, std::wstring_view message, std::vector<std::wstring> labels,
                           std::vector<int> retIds, CWnd* parent)
    : CMultiAskDlg(parent) {
    SetData(caption, message, std::move(labels), std::move(retIds));
}

void CMultiAskDlg::SetData(std::wstring_view newCaption, std::wstring_view newMessage,
                           std::vector<std::wstring> newLabels, std::vector<int> newRetIds) {
    caption = newCaption;
    message = newMessage;
    labels = std::move(newLabels);
    retIds = std::move(newRetIds);
}

int CMultiAskDlg::OnInitDialog() {
    buttonIds = {&m_answer1, &m_answer2, &m_answer3, &m_answer4};
    VORDBoxDlg::OnInitDialog();
    const CRect& rect = GetWindowRect();
    const int bottom = ClientToScreen(buttonIds.back()->GetWindowRect()).bottom + belowLastButton;
    SetMinimumSize(rect.Width(), bottom - rect.top);
    MoveWindow({rect.left, rect.top, rect.right, bottom});
    return 1;
}

void CMultiAskDlg::SetText() {
    SetWindowText(caption);
    m_message.SetWindowText(message);
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
    for (std::size_t i = 0; i < std::min(labels.size(), buttonIds.size()); ++i) buttonIds[i]->SetWindowText(labels[i]);
}

void CMultiAskDlg::InitCtrl() {
    for (std::size_t i = 0; i < buttonIds.size(); ++i) {
        buttonIds[i]->ShowWindow(i < labels.size());
        buttonIds[i]->EnableWindow(i < labels.size());
    }
    SetDefaultButton(m_answer1);
}

int CMultiAskDlg::focusedAnswer() const {
    const auto at = std::find(buttonIds.begin(), buttonIds.end(), GetFocus());
    return at == buttonIds.end() ? -1 : static_cast<int>(at - buttonIds.begin());
}

int CMultiAskDlg::Dlg2Data() {
    const int answer = focusedAnswer();
    if (answer < 0 || answer >= static_cast<int>(retIds.size())) return 0;
    retId = retIds[static_cast<std::size_t>(answer)];
    return 1;
}

bool CMultiAskDlg::PreTranslateMessage(const tv::ui::KeyEvent& key) {
    if ((key.key == tv::ui::Key::enter || key.key == tv::ui::Key::space) && focusedAnswer() >= 0) {
        OnOK();
        return true;
    }
    return VORDBoxDlg::PreTranslateMessage(key);
}
