#include "tavocad/commands/Commands.h"

void registerCommands(TavoSession& session) {
    registerSelectionCommands(session);
    registerUnitsCommand(session);
    registerLayerCommands(session);
    registerPropertyCommands(session);
    registerFileCommands(session);
    registerUndoCommands(session);
    registerSetVarCommand(session);
    registerSysVarsCommand(session);
    registerViewCommands(session);
    registerViewportCommands(session);
    registerXrefCommand(session);
    registerGalleryCommand(session);
    registerHelpCommands(session);
}
