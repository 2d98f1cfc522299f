#include "tavocad/commands/Commands.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "tavocad/TavoSession.h"

#include <algorithm>

namespace {

// The number a person named, else the sheet's first viewport; 0 when it has none.
int wantedViewport(TavoSession& session, const OdDbDatabase& database) {
    if (!session.arguments().isEmpty())
        return static_cast<int>(std::wcstol(session.arguments().wstr().c_str(), nullptr, 10));
    int first = 0;
    if (const auto sheet = database.currentLayoutId().open<OdDbLayout>(); sheet && !sheet->isModelLayout())
        for (const OdDbObjectId id : sheet->viewports())
            if (const auto viewport = id.open<OdDbViewport>(); viewport && viewport->number() >= 2)
                first = first == 0 ? viewport->number() : std::min(first, viewport->number());
    return first;
}

int enter(TavoSession& session, const OdDbDatabasePtr& database, int number) {
    TavoCommandLine& line = *session.host().commandLine();
    if (!database) {
        line.print(VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다.").c_str());
        return RTERROR;
    }
    if (number < 1 || tvedSetVar(L"ACTIVEPV", number, database) != Tavo::eOk) {
        line.print(
            VORD_ResourceString("IDS_TAVO_NO_VIEWPORT", L"보이는 탭에는 그런 뷰포트가 없습니다.").c_str());
        return RTERROR;
    }
    line.print(number == 1 ? OdString(VORD_ResourceString("IDS_TAVO_SHEET_ACTIVE", L"용지가 활성입니다."))
                           : OdString(tv::text::format(VORD_ResourceString("IDS_TAVO_VIEWPORT_ACTIVE",
                                                                           L"뷰포트 %d이(가) 활성입니다."),
                                                       number)));
    return RTNORM;
}

} // namespace

void registerViewportCommands(TavoSession& session) {
    session.addCommand({L"MSPACE",
                        {L"MS"},
                        [] {
                            return OdString(VORD_ResourceString(
                                "IDS_TAVO_HELP_MSPACE", L"배치의 뷰포트를 활성으로 합니다: 번호, 없으면 첫째"));
                        },
                        [&session](TavoEdCommandContext& context) {
                            const OdDbDatabasePtr& database = context.database();
                            return enter(session, database, database ? wantedViewport(session, *database) : 0);
                        }});
    session.addCommand(
        {L"PSPACE",
         {L"PS"},
         [] {
             return OdString(
                 VORD_ResourceString("IDS_TAVO_HELP_PSPACE", L"뷰포트를 떠나 용지를 활성으로 합니다"));
         },
         [&session](TavoEdCommandContext& context) { return enter(session, context.database(), 1); }});
}
