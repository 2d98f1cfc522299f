#pragma once

#include "platform/Export.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/embedded/DefaultCommandLine.h"
#include "platform/host/embedded/DefaultCommands.h"
#include "platform/host/embedded/DefaultDocumentManager.h"
#include "platform/host/embedded/DefaultFonts.h"
#include "platform/host/embedded/DefaultSelection.h"
#include "platform/host/embedded/DefaultServices.h"
#include "platform/host/embedded/DefaultSysvarManager.h"
#include "platform/text/SettingsStore.h"

#include <memory>

namespace tv::host {

// A whole host with a default for every service: installed when constructed, and what was installed before
// comes back when it is destroyed. It is all a test or a small program needs.
class KXPLATFORM_EXPORT EmbeddedHost final : public TavoInterfaces {
  public:
    // Without a settings store of its own the host forgets the user profile with itself.
    explicit EmbeddedHost(std::unique_ptr<tv::SettingsStore> settings = nullptr,
                          OdString productName = L"TavoCAD");
    ~EmbeddedHost() override;
    EmbeddedHost(const EmbeddedHost&) = delete;
    EmbeddedHost& operator=(const EmbeddedHost&) = delete;

    OdString productName() const override { return m_productName; }
    DefaultSysvarManager* sysvarManager() override { return &m_sysvars; }
    DefaultDocumentManager* documentManager() override { return &m_documents; }
    DefaultCommands* commands() override { return &m_commands; }
    DefaultCommandLine* commandLine() override { return &m_commandLine; }
    DefaultModalEvents* modalEvents() override { return &m_modalEvents; }
    TavoHelp* help() override { return m_help; }
    TavoPointInput* pointInput() override { return m_pointInput; }
    DefaultSelection* selection() override { return &m_selection; }
    DefaultDisplay* display() override { return &m_display; }
    DefaultUnits* units() override { return &m_units; }
    TavoFonts* fonts() override { return m_fonts; }
    DefaultFonts& defaultFonts() { return m_defaultFonts; }
    tv::SettingsStore* settings() override { return m_settings.get(); }

    // Puts another implementation (not owned) in place of the default; null brings the default back.
    void setHelp(TavoHelp* help) { m_help = help ? help : &m_defaultHelp; }
    void setFonts(TavoFonts* fonts) { m_fonts = fonts ? fonts : &m_defaultFonts; }
    void setPointInput(TavoPointInput* input) { m_pointInput = input ? input : &m_defaultPointInput; }

  private:
    OdString m_productName;
    std::unique_ptr<tv::SettingsStore> m_settings;
    DefaultSysvarManager m_sysvars;
    DefaultCommandLine m_commandLine;
    DefaultSelection m_selection;
    DefaultDocumentManager m_documents;
    DefaultCommands m_commands;
    DefaultModalEvents m_modalEvents;
    DefaultHelp m_defaultHelp;
    DefaultPointInput m_defaultPointInput;
    DefaultDisplay m_display;
    DefaultUnits m_units;
    DefaultFonts m_defaultFonts;
    TavoFonts* m_fonts = &m_defaultFonts;
    TavoHelp* m_help;
    TavoPointInput* m_pointInput;
    std::vector<Subscription> m_wiring;
    TavoInterfaces* m_previous;
};

} // namespace tv::host
