#pragma once

class TavoSession;

// Every command of the program, one function and file per subject.
void registerCommands(TavoSession& session);

void registerSelectionCommands(TavoSession& session); // SELECT, ERASE, LIST
void registerUnitsCommand(TavoSession& session);
void registerPropertyCommands(TavoSession& session); // COLOR, LINETYPE, LWEIGHT
void registerFileCommands(TavoSession& session);     // NEW, OPEN, SAVE, SAVEAS, CLOSE, QUIT
void registerUndoCommands(TavoSession& session);     // U, UNDO, REDO
void registerSetVarCommand(TavoSession& session);
void registerLayerCommands(TavoSession& session); // LAYER, LAYERPALETTE
void registerSysVarsCommand(TavoSession& session);
void registerHelpCommands(TavoSession& session); // HELP, LANGUAGE
void registerXrefCommand(TavoSession& session);
void registerGalleryCommand(TavoSession& session);
void registerViewportCommands(TavoSession& session); // MSPACE, PSPACE
void registerViewCommands(TavoSession& session); // ZOOM, LAYOUT, REDRAW, REGEN
