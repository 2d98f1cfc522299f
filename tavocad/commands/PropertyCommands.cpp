#include "tavocad/commands/Commands.h"

#include "kxgui/frame/MGUIManager.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/ResourceString.h"
#include "tavocad/TavoSession.h"

namespace {

using Chooser = int (*)(TavoSession&, TavoEdCommandContext&);

int chooseColor(TavoSession& session, TavoEdCommandContext& context) {
    TavoSysvarManager& manager = *session.host().sysvarManager();
    OdCmColor color;
    manager.getVar(L"CECOLOR", color, context.database());
    if (!MGUIManager(&context).ShowColorDialog(color, true)) return RTCAN;
    if (manager.setVar(L"CECOLOR", color, context.database()) == Tavo::eOk) return RTNORM;
    session.print(manager.lastProblem());
    return RTERROR;
}

int chooseLinetype(TavoSession&, TavoEdCommandContext& context) {
    return MGUIManager(&context).ShowLineTypeDialog(context.database()) ? RTNORM : RTCAN;
}

int chooseLineWeight(TavoSession&, TavoEdCommandContext& context) {
    return MGUIManager(&context).ShowLineWeightDialog() ? RTNORM : RTCAN;
}

TavoCommands::Function onDrawing(TavoSession& session, Chooser choose) {
    return [&session, choose](TavoEdCommandContext& context) {
        if (context.database()) return choose(session, context);
        session.host().commandLine()->print(
            VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다."));
        return RTERROR;
    };
}

} // namespace

void registerPropertyCommands(TavoSession& session) {
    session.addCommand(
        {L"COLOR",
         {L"COL", L"COLOUR", L"DDCOLOR"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_COLOR", L"새 객체의 색상을 정합니다")); },
         onDrawing(session, chooseColor)});
    session.addCommand(
        {L"LINETYPE",
         {L"LT", L"LTYPE", L"DDLTYPE"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_LINETYPE", L"새 객체의 선종류를 정합니다")); },
         onDrawing(session, chooseLinetype)});
    session.addCommand({L"LWEIGHT",
                        {L"LW", L"LINEWEIGHT"},
                        [] {
                            return OdString(
                                VORD_ResourceString("IDS_TAVO_HELP_LWEIGHT", L"새 객체의 선가중치를 정합니다"));
                        },
                        onDrawing(session, chooseLineWeight)});
}
