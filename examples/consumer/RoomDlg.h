#pragma once

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/Static.h"

// The host's own dialog: it asks for the name of a room.
constexpr tv::ui::DialogTemplate templates[] = {{5001, "IDD_ROOM", {160, 60}, false}};

struct CRoomDlg : VORDRunDlg {
    CRoomDlg() : VORDRunDlg(5001, nullptr) { m_name.LabelledBy(m_label); }
    void SetText() override {
        SetWindowText(VORD_ResourceString("IDS_ROOM_TITLE", L"실"));
        m_label.SetWindowText(VORD_ResourceString("IDS_ROOM_NAME", L"이름(&N):"));
        m_ok.SetWindowText(VORD_ResourceString("IDS_ROOM_OK", L"확인"));
        m_cancel.SetWindowText(VORD_ResourceString("IDS_ROOM_CANCEL", L"취소"));
    }
    void InitCtrl() override { m_name.SetLimitText(40); }
    void Data2Dlg() override { m_name.SetWindowText(room); }
    int Dlg2Data() override {
        room = m_name.GetWindowText();
        if (room.empty())
            MessageDlg(this, VORD_ResourceString("IDS_ROOM_EMPTY", L"실 이름을 입력하십시오."),
                       GetWindowText().c_str(), 0x30);
        return room.empty() ? 0 : 1;
    }
    std::wstring room;
    CStatic m_label{*this, "IDC_ROOM_LABEL"};
    CEdit m_name{*this, "IDC_ROOM_NAME"};
    CButton m_ok{*this, "IDOK"}, m_cancel{*this, "IDCANCEL"};
};
