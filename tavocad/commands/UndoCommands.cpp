#include "tavocad/commands/Commands.h"

#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "tavocad/TavoSession.h"

#include <charconv>
#include <optional>
#include <string>

namespace {

// How many steps to take: the number behind the command, else one. Nothing when it is no such number.
std::optional<int> stepCount(const OdString& arguments) {
    if (arguments.isEmpty()) return 1;
    std::string digits;
    for (const wchar_t ch : arguments.view())
        digits += ch < 128 ? static_cast<char>(ch) : '?';
    int count = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    if (error != std::errc() || end != digits.data() + digits.size() || count < 1) return std::nullopt;
    return count;
}

int takeSteps(TavoSession& session, bool undo) {
    TavoCommandLine& line = *session.host().commandLine();
    const auto count = stepCount(session.arguments());
    if (!count) {
        line.print(tv::text::format(
            VORD_ResourceString("IDS_TAVO_BAD_STEP_COUNT",
                                L"\"%s\"은(는) 단계 수가 아닙니다. 1 이상의 정수를 입력하십시오."),
            session.arguments()));
        return RTERROR;
    }
    for (int i = 0; i < *count; ++i) {
        const auto name = undo ? session.undo() : session.redo();
        if (!name) {
            line.print(
                undo
                    ? VORD_ResourceString("IDS_TAVO_NOTHING_TO_UNDO", L"취소할 작업이 없습니다.").c_str()
                    : VORD_ResourceString("IDS_TAVO_NOTHING_TO_REDO", L"다시 실행할 작업이 없습니다.").c_str());
            return i == 0 ? RTERROR : RTNORM;
        }
        line.print(tv::text::format(undo ? VORD_ResourceString("IDS_TAVO_UNDONE", L"실행 취소함: %s")
                                         : VORD_ResourceString("IDS_TAVO_REDONE", L"다시 실행함: %s"),
                                    TavoSession::commandName(*name)));
    }
    return RTNORM;
}

} // namespace

void registerUndoCommands(TavoSession& session) {
    session.addCommand(
        {L"UNDO",
         {L"U"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_UNDO", L"마지막 작업을 취소합니다")); },
         [&session](TavoEdCommandContext&) { return takeSteps(session, true); }});
    session.addCommand(
        {L"REDO",
         {},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_REDO", L"취소한 작업을 다시 실행합니다")); },
         [&session](TavoEdCommandContext&) { return takeSteps(session, false); }});
}
