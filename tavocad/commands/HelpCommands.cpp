#include "tavocad/commands/Commands.h"

#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/ResourceString.h"
#include "tavocad/Languages.h"
#include "tavocad/TavoSession.h"

namespace {

int help(TavoSession& session) {
    for (const CommandSpec& command : session.commands()) {
        OdString line = command.name;
        for (const wchar_t* alias : command.aliases)
            line += OdString(L", ") + alias;
        session.host().commandLine()->print(line + L": " + command.summary().view());
    }
    session.host().commandLine()->print(VORD_ResourceString(
        "IDS_TAVO_HELP_VARIABLES",
        L"시스템 변수의 이름을 입력하면 값을 볼 수 있고, 뒤에 값을 붙이면 바꿀 수 있습니다."));
    return RTNORM;
}

int language(TavoSession& session) {
    TavoCommandLine& line = *session.host().commandLine();
    if (session.arguments().isEmpty()) {
        for (const UiLanguage& known : uiLanguages())
            line.print(OdString(known.id == TavoSession::language().id ? L"* " : L"  ") + known.code + L" " +
                       known.ownName);
        return RTNORM;
    }
    const UiLanguage* wanted = uiLanguage(session.arguments().view());
    if (!wanted) {
        line.print(TavoSession::unknownLanguage(session.arguments()));
        return RTERROR;
    }
    session.setLanguage(*wanted);
    return RTNORM;
}

} // namespace

void registerHelpCommands(TavoSession& session) {
    session.addCommand(
        {L"HELP",
         {L"?"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_HELP", L"명령을 모두 보여 줍니다")); },
         [&session](TavoEdCommandContext&) { return help(session); }});
    session.addCommand({L"LANGUAGE",
                        {},
                        [] {
                            return OdString(VORD_ResourceString("IDS_TAVO_HELP_LANGUAGE",
                                                                L"화면의 언어를 바꿉니다: kr, en, jp, rs, ch"));
                        },
                        [&session](TavoEdCommandContext&) { return language(session); }});
}
