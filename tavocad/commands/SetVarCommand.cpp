#include "tavocad/commands/Commands.h"

#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/host/sysvars/SysvarRules.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "tavocad/TavoSession.h"

namespace {

void show(TavoSession& session, const OdString& name) {
    OdString value;
    if (session.host().sysvarManager()->getText(name, value, nullptr) == Tavo::eOk)
        session.host().commandLine()->print(name + L" = " + value.view());
    else
        session.host().commandLine()->print(
            tv::text::format(VORD_ResourceString("IDS_TAVO_VARIABLE_NEEDS_DRAWING",
                                                 L"%s 변수는 도면에 있는데 열려 있는 도면이 없습니다."),
                             name));
}

// "NAME" shows a variable, "NAME value" sets it, nothing shows them all.
int setVar(TavoSession& session) {
    TavoSysvarManager& manager = *session.host().sysvarManager();
    const OdString line = session.arguments();
    if (line.isEmpty()) {
        for (const OdString& name : manager.names()) {
            OdString value;
            if (manager.getText(name, value, nullptr) == Tavo::eOk)
                session.host().commandLine()->print(name + L" = " + value.view());
        }
        return RTNORM;
    }
    const int blank = line.find(L' ');
    const OdString name = tv::text::toUpper((blank < 0 ? line : line.left(blank)).view());
    if (manager.type(name) == TavoSysvarType::kNone) {
        session.print(tv::host::unknownVariable(name.view()));
        return RTERROR;
    }
    if (blank < 0) {
        show(session, name);
        return RTNORM;
    }
    if (manager.setText(name, line.mid(blank + 1).trim(), nullptr) != Tavo::eOk) {
        session.print(manager.lastProblem());
        return RTERROR;
    }
    return RTNORM;
}

} // namespace

void registerSetVarCommand(TavoSession& session) {
    session.addCommand(
        {L"SETVAR",
         {L"SET"},
         [] { return OdString(VORD_ResourceString("IDS_TAVO_HELP_SETVAR", L"시스템 변수를 보거나 바꿉니다")); },
         [&session](TavoEdCommandContext&) { return setVar(session); }});
}
