#include "kxgui/layers/LayerWatcher.h"

#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/host/TavoDocumentManager.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"

#include <algorithm>
#include <utility>

namespace kx::layers {

LayerWatcher::LayerWatcher(std::function<void(const Changes&)> tell) : m_tell(std::move(tell)) {
    TavoInterfaces* host = getTavoInterfaces();
    if (!host) return;
    if (auto* documents = host->documentManager())
        m_subscriptions.push_back(
            documents->onDocumentEvent([this](TavoDocumentManager::Event event, TavoDocument*) {
                if (event == TavoDocumentManager::Event::kSaved) return;
                m_drawing = true;
                later();
            }));
    if (auto* variables = host->sysvarManager())
        m_subscriptions.push_back(
            variables->onSysvarChanged([this](const OdString& name, const OdDbDatabasePtr& database) {
                if (!m_watched || (database && database.get() != m_watched)) return;
                if (name != L"TILEMODE" && name != L"ACTIVEPV") return;
                m_viewport = true;
                later();
            }));
}

LayerWatcher::~LayerWatcher() { watch(nullptr); }

void LayerWatcher::watch(OdDbDatabase* database) {
    if (database == m_watched) return;
    if (m_watched) m_watched->removeReactor(this);
    m_watched = database;
    if (m_watched) m_watched->addReactor(this);
    m_current = m_viewport = m_filters = false;
    m_layers.clear();
}

void LayerWatcher::headerSysVarChanged(OdDbDatabase&, std::wstring_view name) {
    if (name == L"CLAYER")
        m_current = true;
    else if (name == L"TILEMODE")
        m_viewport = true;
    else
        return;
    later();
}

void LayerWatcher::goodbye(OdDbDatabase&) {
    watch(nullptr);
    m_drawing = true;
    deliver();
}

// Entities change by the million: what they are must cost next to nothing.
void LayerWatcher::note(OdDbObjectId id) {
    using tv::dwg::NamedKind;
    const auto kind = tv::dwg::namedKindOf(id);
    if (kind == NamedKind::kLayer) {
        if (m_layers.size() <= kFewLayers) m_layers.insert(id);
    } else if (kind == NamedKind::kBlock) {
        m_filters = true; // external references come and go as blocks
    } else if (tv::dwg::isViewport(id)) {
        m_viewport = true;
    } else if (id.database()->store().record(id.record()).section == tv::dwg::Section::kObjects) {
        m_filters = true;
    } else {
        return;
    }
    later();
}

void LayerWatcher::later() {
    tv::ui::Toolkit* toolkit = tv::ui::Toolkit::current();
    if (toolkit && !m_delivery.pending()) m_delivery = toolkit->post([this] { deliver(); });
}

void LayerWatcher::deliver() {
    m_delivery.cancel();
    Changes changes;
    changes.drawing = std::exchange(m_drawing, false);
    changes.current = std::exchange(m_current, false);
    changes.viewport = std::exchange(m_viewport, false);
    changes.filters = std::exchange(m_filters, false);
    const auto layers = std::exchange(m_layers, {});
    changes.table = layers.size() > kFewLayers;
    if (!changes.table) changes.layers.assign(layers.begin(), layers.end());
    std::ranges::sort(changes.layers, {}, &OdDbObjectId::record); // new ones in the order they were made
    if (changes.any()) m_tell(changes);
}

} // namespace kx::layers
