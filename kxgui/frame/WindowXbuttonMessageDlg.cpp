#include "kxgui/frame/WindowXbuttonMessageDlg.h"

#include "kxgui/frame/Templates.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

namespace kx::frame {

void setWindowCloseTexts(CWnd& dialog, const WindowCloseControls& controls, const std::wstring& windowName) {
    if (TavoInterfaces* host = getTavoInterfaces()) dialog.SetWindowText(host->productName());
    controls.heading.SetWindowText(tv::text::format(
        VORD_ResourceString("IDS_WINDOW_X_BUTTTON_1", L"[%s] 을/를\n다음과 같이 처리합니다."), windowName));
    controls.heading.SetFontScale(1.3, true);
    controls.notAgain.SetWindowText(
        VORD_ResourceString("IDS_WINDOW_X_BUTTTON_2",
                            L"다시 보지 않기\n옵션>사용자 기본 설정>탭 항목에서 설정을 변경할 수 있습니다."));
    controls.close.SetWindowText(VORD_ResourceString(
        "IDS_WINDOW_X_BUTTTON_3", L"윈도우 닫기\n윈도우를 닫아둡니다. 윈도우 트리에서 다시 열 수 있습니다."));
    controls.exportFile.SetWindowText(
        VORD_ResourceString("IDS_WINDOW_X_BUTTTON_5", L"윈도우 내보내기\n윈도우를 DWG로 내보냅니다."));
}

void rememberWindowClose(WindowCloseAction action) {
    if (getSysvarManagerInterface(getTavoInterfaces()))
        tvedSetVar(L"TABCLOSEMODE", static_cast<int>(action), nullptr);
}

} // namespace kx::frame

CWindowXbuttonMessageDlg::CWindowXbuttonMessageDlg(CWnd* parent) : VORDBoxDlg(IDD_WINDOW_XBUTTON, parent) {
    m_close.onClick = [this] { choose(windowActionClose); };
    m_delete.onClick = [this] { choose(windowActionDelete); };
    m_export.onClick = [this] { choose(windowActionExport); };
    SetDefaultButton(m_close);
}

void CWindowXbuttonMessageDlg::SetText() {
    kx::frame::setWindowCloseTexts(*this, {m_heading, m_close, m_export, m_notAgain}, windowName);
    m_delete.SetWindowText(VORD_ResourceString(
        "IDS_WINDOW_X_BUTTTON_4", L"윈도우 삭제\n윈도우를 삭제합니다. 다시 복구하거나 UNDO 할 수 없습니다."));
}

void CWindowXbuttonMessageDlg::choose(WindowCloseAction action) {
    if (m_notAgain.GetCheck() == CCheckBox::checked) kx::frame::rememberWindowClose(action);
    result = action;
    EndDialog(IDOK);
}

CSingleWindowXbuttonMessageDlg::CSingleWindowXbuttonMessageDlg(CWnd* parent)
    : VORDBoxDlg(IDD_SINGLE_WINDOW_XBUTTON, parent) {
    m_close.onClick = [this] { choose(windowActionClose); };
    m_export.onClick = [this] { choose(windowActionExport); };
    SetDefaultButton(m_close);
}

void CSingleWindowXbuttonMessageDlg::SetText() {
    kx::frame::setWindowCloseTexts(*this, {m_heading, m_close, m_export, m_notAgain}, windowName);
}

void CSingleWindowXbuttonMessageDlg::choose(WindowCloseAction action) {
    if (m_notAgain.GetCheck() == CCheckBox::checked) kx::frame::rememberWindowClose(action);
    result = action;
    EndDialog(IDOK);
}
