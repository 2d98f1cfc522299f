#pragma once

#include "platform/Export.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoCommands.h"
#include "platform/host/TavoDocumentManager.h"

#include <array>
#include <map>

namespace tv::host {

class KXPLATFORM_EXPORT DefaultCommands final : public TavoCommands {
  public:
    // Both outlive this object.
    DefaultCommands(TavoDocumentManager& documents, TavoCommandLine& commandLine)
        : m_documents(documents), m_commandLine(commandLine) {}

    Tavo::ErrorStatus add(const OdString& name, Function function, Undo undo = Undo::kOneStep) override;
    Tavo::ErrorStatus addAlias(const OdString& alias, const OdString& name) override;
    bool has(const OdString& name) const override { return find(name) != m_commands.end(); }
    std::vector<OdString> names() const override;
    int run(const OdString& name) override;
    std::vector<OdString> running() const override { return m_running; }

    int activity() const override;
    void beginActivity(TavoCommandActivity bit) override;
    void endActivity(TavoCommandActivity bit) override;
    Subscription onActivityChanged(ActivityListener listener) override {
        return m_activityChanged.connect(std::move(listener));
    }

  private:
    struct Command {
        Function function;
        Undo undo;
    };
    using Commands = std::map<std::wstring, Command>;
    Commands::const_iterator find(const OdString& typed) const;
    int call(const std::wstring& name, const Command& command);
    void count(TavoCommandActivity bit, int step);

    TavoDocumentManager& m_documents;
    TavoCommandLine& m_commandLine;
    Commands m_commands;                            // by name in upper case
    std::map<std::wstring, std::wstring> m_aliases; // both in upper case
    std::vector<OdString> m_running;
    std::array<int, 6> m_activities{}; // how often each bit was begun
    Signal<int> m_activityChanged;
};

} // namespace tv::host
