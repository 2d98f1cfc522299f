#include "platform/host/embedded/EmbeddedHost.h"

namespace tv::host {

EmbeddedHost::EmbeddedHost(std::unique_ptr<tv::SettingsStore> settings, OdString productName)
    : m_productName(std::move(productName)),
      m_settings(settings ? std::move(settings) : std::make_unique<tv::MemorySettingsStore>()),
      m_sysvars(m_settings.get()), m_commands(m_documents, m_commandLine), m_defaultHelp(m_commandLine),
      m_help(&m_defaultHelp), m_pointInput(&m_defaultPointInput), m_previous(setTavoInterfaces(this)) {
    m_wiring.push_back(
        m_documents.onDocumentEvent([this](TavoDocumentManager::Event event, TavoDocument* document) {
            using Event = TavoDocumentManager::Event;
            if (event == Event::kOpened) m_sysvars.watch(document->database());
            if (event == Event::kCurrentChanged) m_selection.clear();
            if (event == Event::kClosing) m_selection.forget(document->database().get());
        }));
    m_wiring.push_back(
        m_commands.onActivityChanged([this](int bits) { m_sysvars.setSession(L"CMDACTIVE", bits); }));
    m_wiring.push_back(m_modalEvents.onDepthChanged([this, open = false](int depth) mutable {
        if ((depth > 0) == open) return;
        open = depth > 0;
        if (open)
            m_commands.beginActivity(kActiveDialog);
        else
            m_commands.endActivity(kActiveDialog);
    }));
}

EmbeddedHost::~EmbeddedHost() {
    if (getTavoInterfaces() == this) setTavoInterfaces(m_previous);
}

} // namespace tv::host
