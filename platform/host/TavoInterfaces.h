#pragma once

#include "platform/Export.h"
#include "platform/host/DrawingTypes.h"
#include "platform/text/OdString.h"

class TavoCommandLine;
class TavoCommands;
class TavoDisplay;
class TavoDocumentManager;
class TavoFonts;
class TavoHelp;
class TavoModalEvents;
class TavoPointInput;
class TavoSelection;
class TavoSysvarManager;
class TavoUnits;

namespace tv {
class SettingsStore;
}

// What a CAD program offers to its dialogs. A program supplies its own implementation of any of these services,
// or takes the defaults of tv::host::EmbeddedHost. A service that is null is not offered; the callers then do
// without. Everything here belongs to the host's user-interface thread.
class TavoInterfaces {
  public:
    virtual ~TavoInterfaces() = default;

    virtual OdString productName() const = 0;

    virtual TavoSysvarManager* sysvarManager() = 0;
    virtual TavoDocumentManager* documentManager() = 0;
    virtual TavoCommands* commands() = 0;
    virtual TavoCommandLine* commandLine() = 0;
    virtual TavoModalEvents* modalEvents() = 0;
    virtual TavoHelp* help() = 0;
    virtual TavoPointInput* pointInput() = 0;
    virtual TavoSelection* selection() = 0;
    virtual TavoDisplay* display() = 0;
    virtual TavoUnits* units() = 0;
    virtual TavoFonts* fonts() { return nullptr; }
    virtual tv::SettingsStore* settings() = 0;
};

// The program's services; null before a host has been set up.
KXPLATFORM_EXPORT TavoInterfaces* getTavoInterfaces();
// Installs `host` (not owned; null for none) and returns what was installed before.
KXPLATFORM_EXPORT TavoInterfaces* setTavoInterfaces(TavoInterfaces* host);

// Null when `host` is null or has no system variables.
KXPLATFORM_EXPORT TavoSysvarManager* getSysvarManagerInterface(TavoInterfaces* host);

// Where the host's dialogs keep what a person arranged; null without a host, or when it keeps nothing.
KXPLATFORM_EXPORT tv::SettingsStore* tvedSettings();

// The database of the current document; null without a host, a document, or while the main window is closing.
KXPLATFORM_EXPORT OdDbDatabasePtr tvedWorkingDatabase();
