#include "tavocad/commands/Commands.h"

void registerCommands(TavoSession& session) {
    registerUnitsCommand(session);
    registerFileCommands(session);
    registerUndoCommands(session);
    registerSetVarCommand(session);
    registerHelpCommands(session);
}
