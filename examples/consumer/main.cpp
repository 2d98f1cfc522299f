// A small host: the embedded services, a dialog of its own, and a run of it. `consumer <folder>` takes texts
// and Designer file from the folder. A simulated user stands in for the person, so that it runs anywhere.
#include "kxgui/frame/Messages.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/Static.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/headless/SimulatedUser.h"
#ifdef WITH_QT
#include "qt/QtToolkit.h"
#include <QApplication>
#endif
#include <cstdio>

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

int main(int argc, char** argv) {
    const std::filesystem::path folder = argc > 1 ? argv[1] : ".";
#ifdef WITH_QT
    QApplication app(argc, argv);
    QtToolkit toolkit;
    toolkit.addTemplatePath(QString::fromStdString((folder / "ui").string()));
#else
    tv::ui::HeadlessToolkit toolkit;
#endif
    tv::host::EmbeddedHost host;
    tv::ui::ModuleChain::instance().add({"consumer", false, templates});
    VORD_MSGFunction::AddFileBase(folder / "messages" / "consumer");
    VORD_MSGFunction::SetCurrentLanguageId(1033); // English
    VORD_MSGFunction::LoadFile();

    int faults = 0;
    const auto fail = [&faults](const std::string& fault) {
        ++faults, std::fprintf(stderr, "%s\n", fault.c_str());
    };
    {
        tv::ui::SimulatedUser user(toolkit, fail); // also fails for a window that never came
        user.expect<CRoomDlg>(
            [](auto& u) { u.click("IDOK"), u.type("IDC_ROOM_NAME", L"Hall"), u.click("IDOK"); });
        user.expectBox(L"The room needs a name.", "IDOK");
        CRoomDlg dialog;
        const int code = dialog.DoModal();
        std::printf("%s: %s, code %d\n", toolkit.name(), tv::text::toUtf8(dialog.room).c_str(), code);
    }
    return faults;
}
