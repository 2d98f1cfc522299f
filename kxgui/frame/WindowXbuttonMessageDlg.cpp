#include "kxgui/frame/WindowXbuttonMessageDlg.h"

#include "kxgui/frame/Templates.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

CWindowCloseDlg::CWindowCloseDlg(unsigned templateId, bool offersDelete, CWnd* parent)
    : VORDBoxDlg(templateId, parent),
      m_delete(offersDelete ? std::make_unique<CCommandButton>(*this, "IDC_WINDOW_X_DELETE") : nullptr),
      m_export(*this, "IDC_WINDOW_X_EXPORT"), m_notAgain(*this, "IDC_WINDOW_X_NOT_AGAIN") {
    m_close.onClick = [this] { choose(windowActionClose); };
    if (m_delete) m_delete->onClick = [this] { choose(windowActionDelete); };
    m_export.onClick = [this] { choose(windowActionExport); };
    SetDefaultButton(m_close);
}

void CWindowCloseDlg::SetText() {
    if (TavoInterfaces* host = getTavoInterfaces()) SetWindowText(host->productName());
    m_heading.SetWindowText(tv::text::format(
        VORD_ResourceString("IDS_WINDOW_X_BUTTTON_1", L"[%s] 을/를\n다음과 같이 처리합니다."), windowName));
    m_heading.SetFontScale(1.3, true);
    m_notAgain.SetWindowText(
        VORD_ResourceString("IDS_WINDOW_X_BUTTTON_2",
                            L"다시 보지 않기\n옵션>사용자 기본 설정>탭 항목에서 설정을 변경할 수 있습니다."));
    m_close.SetWindowText(VORD_ResourceString(
        "IDS_WINDOW_X_BUTTTON_3", L"윈도우 닫기\n윈도우를 닫아둡니다. 윈도우 트리에서 다시 열 수 있습니다."));
    if (m_delete)
        m_delete->SetWindowText(
            VORD_ResourceString("IDS_WINDOW_X_BUTTTON_4",
                                L"윈도우 삭제\n윈도우를 삭제합니다. 다시 복구하거나 UNDO 할 수 없습니다."));
    m_export.SetWindowText(
        VORD_ResourceString("IDS_WINDOW_X_BUTTTON_5", L"윈도우 내보내기\n윈도우를 DWG로 내보냅니다."));
}

void CWindowCloseDlg::choose(WindowCloseAction action) {
    if (m_notAgain.GetCheck() == CCheckBox::checked && getSysvarManagerInterface(getTavoInterfaces()))
        tvedSetVar(L"TABCLOSEMODE", static_cast<int>(action), nullptr);
    result = action;
    EndDialog(IDOK);
}

CWindowXbuttonMessageDlg::CWindowXbuttonMessageDlg(CWnd* parent)
    : CWindowCloseDlg(IDD_WINDOW_XBUTTON, true, parent) {}

CSingleWindowXbuttonMessageDlg::CSingleWindowXbuttonMessageDlg(CWnd* parent)
    : CWindowCloseDlg(IDD_SINGLE_WINDOW_XBUTTON, false, parent) {}
