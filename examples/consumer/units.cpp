#include "kxgui/frame/UnitsDlg.h"
#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "qt/QtToolkit.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QtToolkit toolkit;           // shows the dialogs
    tv::host::EmbeddedHost host; // all that a dialog asks a CAD program for

    VORD_MSGFunction::AddFileBase(KXGUI_MESSAGES_DIR "/kxgui");
    VORD_MSGFunction::SetCurrentLanguageId(1033); // English
    VORD_MSGFunction::LoadFile();

    OdDbDatabasePtr drawing = host.documentManager()->newDocument()->database();
    T_UNITS_D units{2, 4, 0, 0, false, 4, 0.0}; // decimal, four places, degrees, millimetres
    CUnitsDlg dialog(drawing, units.angbase, nullptr);
    dialog.SetData(units);
    if (dialog.DoModal() == IDOK) dialog.GetData(units);
}
