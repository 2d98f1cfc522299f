// A small host: the embedded services, a dialog of its own (RoomDlg.h), and a run of it. `consumer <folder>`
// takes texts and Designer file from the folder. A simulated user stands in for the person, so that it runs
// anywhere.
#include "RoomDlg.h"

#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/headless/SimulatedUser.h"
#ifdef WITH_QT
#include "qt/QtToolkit.h"
#include <QApplication>
#endif
#include <cstdio>

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
