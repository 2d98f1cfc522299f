#include "tavocad/commands/Commands.h"

#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/ResourceString.h"
#include "tavocad/DrawingScenes.h"
#include "tavocad/References.h"
#include "tavocad/TavoSession.h"

namespace {

int listAll(TavoSession& session, TavoEdCommandContext& context) {
    TavoCommandLine& line = *session.host().commandLine();
    if (!context.database()) {
        line.print(VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다.").c_str());
        return RTERROR;
    }
    if (!listReferences(session.scenes().referencesOf(context.database()), line))
        line.print(VORD_ResourceString("IDS_TAVO_XREFS_NONE", L"도면에 외부 참조가 없습니다.").c_str());
    return RTNORM;
}

} // namespace

void registerXrefCommand(TavoSession& session) {
    session.addCommand(
        {L"XREF",
         {L"XR"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_XREF", L"외부 참조를 모두 보여 줍니다")); },
         [&session](TavoEdCommandContext& context) { return listAll(session, context); }});
}
