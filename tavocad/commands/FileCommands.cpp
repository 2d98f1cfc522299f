#include "tavocad/commands/Commands.h"

#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/TavoSession.h"

namespace {

int fail(TavoSession& session, const OdString& sentence) {
    session.host().commandLine()->print(sentence);
    return RTERROR;
}

int noDrawing(TavoSession& session) {
    return fail(session, VORD_ResourceString("IDS_TAVO_NO_DRAWING", L"열려 있는 도면이 없습니다."));
}

// The file named behind the command, or else the one the person chooses. `result` says why there is none.
std::optional<std::filesystem::path> fileFor(TavoSession& session, const wchar_t* command,
                                             TavoSession::FileQuestion question, int& result) {
    if (!session.arguments().isEmpty()) return tv::text::toUtf8(session.arguments().view());
    result = RTCAN;
    if (session.askFile) return session.askFile(question);
    result = fail(session, tv::text::format(VORD_ResourceString("IDS_TAVO_FILE_NAME_MISSING",
                                                                L"파일 이름이 필요합니다. 예: %s drawing.dxf"),
                                            command));
    return std::nullopt;
}

int open(TavoSession& session) {
    int result = RTNORM;
    const auto file = fileFor(session, L"OPEN", TavoSession::FileQuestion::open, result);
    if (!file) return result;
    const tv::Problem problem = session.open(*file);
    session.print(problem);
    return problem ? RTERROR : RTNORM;
}

int saveTo(TavoSession& session, const std::filesystem::path& file, bool asked = false) {
    switch (session.saveAsking(*session.document(), file, {.asked = asked})) {
    case TavoSession::SaveResult::givenUp:
        return RTCAN;
    case TavoSession::SaveResult::failed:
        return RTERROR;
    case TavoSession::SaveResult::saved:
        break;
    }
    session.host().commandLine()->print(tv::text::format(
        VORD_ResourceString("IDS_TAVO_SAVED", L"%s에 저장했습니다."), session.document()->name()));
    return RTNORM;
}

int saveAs(TavoSession& session) {
    if (!session.document()) return noDrawing(session);
    int result = RTNORM;
    auto file = fileFor(session, L"SAVEAS", TavoSession::FileQuestion::save, result);
    if (!file) return result;
    const bool typed = !session.arguments().isEmpty();
    if (typed && file->has_filename() && !file->has_extension()) *file += ".dxf";
    return saveTo(session, *file, !typed);
}

int save(TavoSession& session) {
    if (!session.document()) return noDrawing(session);
    const bool named = !session.document()->path().empty() && session.arguments().isEmpty();
    return named ? saveTo(session, {}) : saveAs(session);
}

int newDrawing(TavoSession& session) {
    if (session.host().documentManager()->newDocument()) return RTNORM;
    return fail(session, VORD_ResourceString("IDS_TAVO_NEW_FAILED", L"새 도면을 만들지 못했습니다."));
}

int close(TavoSession& session) {
    if (!session.document()) return noDrawing(session);
    return session.closeAsking(session.document()) ? RTNORM : RTCAN;
}

int quit(TavoSession& session) {
    while (TavoDocument* document = session.document())
        if (!session.closeAsking(document)) return RTCAN;
    session.requestQuit();
    return RTNORM;
}

} // namespace

void registerFileCommands(TavoSession& session) {
    auto with = [&session](int (*function)(TavoSession&)) {
        return [&session, function](TavoEdCommandContext&) { return function(session); };
    };
    session.addCommand(
        {L"NEW",
         {},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_NEW", L"새 도면을 시작합니다")); },
         with(newDrawing)});
    session.addCommand(
        {L"OPEN",
         {L"OP"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_OPEN", L"도면 파일을 엽니다")); },
         with(open)});
    session.addCommand(
        {L"SAVE",
         {L"QSAVE"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_SAVE", L"도면을 저장합니다")); },
         with(save)});
    session.addCommand(
        {L"SAVEAS",
         {},
         [] {
             return OdString(VORD_ResourceString("IDS_TAVO_HELP_SAVEAS", L"도면을 다른 이름으로 저장합니다"));
         },
         with(saveAs)});
    session.addCommand({L"CLOSE",
                        {},
                        [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_CLOSE", L"도면을 닫습니다")); },
                        with(close)});
    session.addCommand(
        {L"QUIT",
         {L"EXIT"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_QUIT", L"프로그램을 끝냅니다")); },
         with(quit)});
}
