#include "tavocad/commands/Commands.h"

#include "kxgui/layers/LayerDlg.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/text/ResourceString.h"
#include "tavocad/TavoSession.h"

#include <memory>

namespace {

// Opens on the layers of what is selected, or on the current one.
void showSelected(CLayerDlg& dialog, TavoSession& session) {
    std::vector<OdDbObjectId> selected = session.host().selection()->ids();
    if (selected.empty()) return;
    dialog.SetObjectIdArray(std::move(selected));
    dialog.SetCallBackType(kLayerCallbackSelect);
}

int runManager(TavoSession& session, TavoEdCommandContext& context) {
    if (!context.database()) {
        session.host().commandLine()->print(
            VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다.").c_str());
        return RTERROR;
    }
    CLayerDlg dialog(context.database().get(), nullptr);
    showSelected(dialog, session);
    return dialog.DoModal() == IDOK ? RTNORM : RTCAN;
}

// The manager that stays open beside the drawing, and goes with the program.
class Palette {
  public:
    int toggle(TavoSession& session, TavoEdCommandContext& context) {
        if (m_dialog && m_dialog->created()) {
            m_dialog->DestroyWindow();
            return RTNORM;
        }
        m_dialog = std::make_unique<CLayerDlg>(context.database().get(), nullptr);
        m_dialog->SetInterface(&m_holder);
        showSelected(*m_dialog, session);
        return m_dialog->Create() ? RTNORM : RTERROR;
    }

  private:
    CLayerInterface m_holder;
    std::unique_ptr<CLayerDlg> m_dialog;
};

} // namespace

void registerLayerCommands(TavoSession& session) {
    session.addCommand(
        {L"LAYER",
         {L"LA"},
         [] {
             return OdString(VORD_ResourceString("IDS_TAVO_HELP_LAYER", L"모든 도면층을 보고 바꿉니다"));
         },
         [&session](TavoEdCommandContext& context) { return runManager(session, context); },
         TavoCommands::Undo::kOwnSteps});
    session.addCommand(
        {L"LAYERPALETTE",
         {},
         [] {
             return OdString(VORD_ResourceString("IDS_TAVO_HELP_LAYERPALETTE",
                                                 L"도면층 관리자를 도면 옆에 열어 두거나 닫습니다"));
         },
         [&session, palette = std::make_shared<Palette>()](TavoEdCommandContext& context) {
             return palette->toggle(session, context);
         },
         TavoCommands::Undo::kOwnSteps});
}
