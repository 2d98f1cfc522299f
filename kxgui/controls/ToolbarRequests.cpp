#include "kxgui/controls/ToolbarRequests.h"

#include "kxgui/controls/IToolbarComboBox.h"
#include "platform/host/TavoDocumentManager.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSelection.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/MessageManager.h"

#include <algorithm>
#include <utility>

namespace kx::controls {

ToolbarRequests::ToolbarRequests(std::vector<IToolbarComboBox*> boxes) : m_boxes(std::move(boxes)) {
    for (IToolbarComboBox* box : m_boxes)
        box->ShowCaption();
    m_languageHandle = VORD_MSGFunction::onLanguageChanged([this] {
        for (IToolbarComboBox* box : m_boxes)
            box->ShowCaption();
        RequestAll();
    });
    watch(tvedWorkingDatabase().get());
    RequestAll();
    TavoInterfaces* host = getTavoInterfaces();
    if (!host) return;
    if (auto* documents = host->documentManager())
        m_subscriptions.push_back(
            documents->onDocumentEvent([this](TavoDocumentManager::Event event, TavoDocument* document) {
                using Event = TavoDocumentManager::Event;
                if (event == Event::kSaved) return;
                if (event != Event::kClosing)
                    watch(tvedWorkingDatabase().get());
                else if (document && document->database().get() == m_watched)
                    watch(nullptr);
                RequestAll();
            }));
    if (auto* selection = host->selection())
        m_subscriptions.push_back(selection->onSelectionChanged([this] {
            m_selection = true;
            later();
        }));
    if (auto* variables = host->sysvarManager())
        m_subscriptions.push_back(
            variables->onSysvarChanged([this](const OdString& name, const OdDbDatabasePtr& database) {
                if (m_all || (database && database.get() != m_watched)) return;
                const bool followed = std::any_of(m_boxes.begin(), m_boxes.end(),
                                                  [&](auto* box) { return box->Follows(name.view()); });
                if (!followed) return;
                m_variables.emplace(name.view());
                later();
            }));
}

ToolbarRequests::~ToolbarRequests() { watch(nullptr); }

void ToolbarRequests::watch(OdDbDatabase* database) {
    if (database == m_watched) return;
    if (m_watched) m_watched->removeReactor(this);
    m_watched = database;
    if (m_watched) m_watched->addReactor(this);
}

void ToolbarRequests::RequestAll() {
    if (std::exchange(m_all, true)) return;
    later();
}

void ToolbarRequests::later() {
    tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
    if (toolkit && !m_delivery.pending()) m_delivery = toolkit->post([this] { deliver(); });
}

void ToolbarRequests::deliver() {
    const bool all = std::exchange(m_all, false), selection = std::exchange(m_selection, false);
    const auto variables = std::exchange(m_variables, {});
    for (IToolbarComboBox* box : m_boxes) {
        const bool changed = all || std::any_of(variables.begin(), variables.end(),
                                                [&](const auto& v) { return box->Follows(v); });
        if (changed)
            box->RequestUpdate();
        else if (selection)
            box->RequestSelection();
    }
}

void ToolbarRequests::Settle() {
    if (m_delivery.pending()) {
        m_delivery.cancel();
        deliver();
    }
    for (IToolbarComboBox* box : m_boxes)
        box->Settle();
}

} // namespace kx::controls
