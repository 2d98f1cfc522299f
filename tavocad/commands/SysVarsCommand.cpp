#include "tavocad/commands/Commands.h"

#include "kxgui/sysvars/SysVarsDlg.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Dialog.h"
#include "tavocad/TavoSession.h"

void registerSysVarsCommand(TavoSession& session) {
    session.addCommand({L"SYSVARS",
                        {},
                        [] {
                            return OdString(VORD_ResourceString("IDS_TAVO_HELP_SYSVARS",
                                                                L"시스템 변수를 표에서 보고 바꿉니다"));
                        },
                        [](TavoEdCommandContext& context) {
                            CSysVarsDlg dialog(context.database(), nullptr);
                            return dialog.DoModal() == IDOK ? RTNORM : RTCAN;
                        }});
}
