#include "tavocad/commands/Commands.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "tavocad/EntityText.h"
#include "tavocad/SelectionRequests.h"
#include "tavocad/SelectionWords.h"
#include "tavocad/TavoSession.h"

#include <algorithm>

using tv::text::format;

namespace {

// As many objects as LIST describes at once.
constexpr std::size_t mostListed = 200;

int fail(TavoSession& session, const OdString& sentence) {
    session.host().commandLine()->print(sentence);
    return RTERROR;
}

OdString selectPrompt() { return VORD_ResourceString("IDS_TAVO_SELECT_PROMPT", L"객체 선택:"); }

// What the command works on: the objects its arguments name, those selected already, or those the person
// selects now. `result` says why there are none.
std::optional<SelectionRequests::Answer> objectsFor(TavoSession& session, TavoEdCommandContext& context,
                                                    bool forEditing, int& result) {
    result = RTERROR;
    std::optional<SelectionRequests::Answer> answer;
    if (session.arguments().isEmpty()) {
        answer = session.objects().get(selectPrompt(), context.database(), forEditing);
    } else {
        TavoSelectionSet named;
        const auto chosen = chooseAnew(*session.host().selection(), context.database(), session.pickTolerance(),
                                       session.arguments().view(), named);
        if (!chosen) {
            session.host().commandLine()->print(chosen.refusal);
            return std::nullopt;
        }
        answer = session.objects().use(named.ids(), context.database(), forEditing);
    }
    result = RTCAN;
    if (!answer) return std::nullopt;
    if (answer->locked > 0)
        session.host().commandLine()->print(
            format(VORD_ResourceString("IDS_TAVO_SELECT_LOCKED", L"잠긴 도면층의 객체 %d개는 제외했습니다."),
                   static_cast<long long>(answer->locked)));
    if (answer->ids.empty()) {
        session.host().commandLine()->print(
            VORD_ResourceString("IDS_TAVO_SELECT_NONE", L"선택된 객체가 없습니다.").c_str());
        return std::nullopt;
    }
    return answer;
}

int select(TavoSession& session, TavoEdCommandContext& context) {
    TavoSelection& selection = *session.host().selection();
    if (session.arguments().isEmpty()) {
        if (!session.objects().ask(selectPrompt(), context.database(), false)) return RTCAN;
    } else {
        TavoSelectionSet named;
        const auto chosen = chooseAnew(selection, context.database(), session.pickTolerance(),
                                       session.arguments().view(), named);
        if (!chosen) return fail(session, chosen.refusal);
        selection.set(named.ids());
        selection.setPrevious(named.ids());
    }
    session.host().commandLine()->print(
        format(VORD_ResourceString("IDS_TAVO_SELECTED_COUNT", L"객체 %d개를 선택했습니다."),
               static_cast<long long>(selection.ids().size())));
    return RTNORM;
}

int erase(TavoSession& session, TavoEdCommandContext& context) {
    if (context.database()->isReadOnly())
        return fail(session, VORD_ResourceString("IDS_TAVO_READ_ONLY",
                                                 L"도면이 읽기 전용으로 열려 있어 편집할 수 없습니다."));
    int result = RTNORM;
    const auto objects = objectsFor(session, context, true, result);
    if (!objects) return result;
    std::size_t erased = 0;
    for (const OdDbObjectId& id : objects->ids)
        if (const auto object = id.openObject(OdDb::kForWrite); object && object->erase() == Tavo::eOk)
            ++erased;
    if (session.arguments().isEmpty()) session.host().selection()->clear();
    session.host().commandLine()->print(
        format(VORD_ResourceString("IDS_TAVO_ERASED_COUNT", L"객체 %d개를 지웠습니다."),
               static_cast<long long>(erased)));
    return erased == objects->ids.size() ? RTNORM : RTERROR;
}

int list(TavoSession& session, TavoEdCommandContext& context) {
    int result = RTNORM;
    const auto objects = objectsFor(session, context, false, result);
    if (!objects) return result;
    TavoCommandLine& line = *session.host().commandLine();
    const std::size_t shown = std::min(objects->ids.size(), mostListed);
    for (std::size_t i = 0; i < shown; ++i)
        for (const OdString& text : describeEntity(objects->ids[i]))
            line.print(text);
    if (shown < objects->ids.size())
        line.print(format(VORD_ResourceString("IDS_TAVO_LIST_MORE", L"그 밖에 객체 %d개가 더 있습니다."),
                          static_cast<long long>(objects->ids.size() - shown)));
    return RTNORM;
}

using Function = int (*)(TavoSession&, TavoEdCommandContext&);

TavoCommands::Function onDrawing(TavoSession& session, Function function) {
    return [&session, function](TavoEdCommandContext& context) {
        if (context.database()) return function(session, context);
        return fail(session, VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다."));
    };
}

} // namespace

void registerSelectionCommands(TavoSession& session) {
    session.addCommand({L"SELECT",
                        {},
                        [] {
                            return OdString(VORD_ResourceString(
                                "IDS_TAVO_HELP_SELECT", L"객체를 선택합니다: ALL, LAST, WINDOW 0,0 10,10 ..."));
                        },
                        onDrawing(session, select)});
    session.addCommand(
        {L"ERASE",
         {L"E", L"DELETE"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_ERASE", L"선택한 객체를 지웁니다")); },
         onDrawing(session, erase)});
    session.addCommand({L"LIST",
                        {L"LI", L"LS"},
                        [] {
                            return OdString(
                                VORD_ResourceString("IDS_TAVO_HELP_LIST", L"선택한 객체의 특성을 보여 줍니다"));
                        },
                        onDrawing(session, list)});
}
