#pragma once

#include "platform/drawing/OdDbDatabaseReactor.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/host/DrawingTypes.h"
#include "platform/host/Signal.h"
#include "platform/toolkit/Toolkit.h"

#include <functional>
#include <memory>
#include <unordered_set>
#include <vector>

namespace kx::layers {

// Hears what a drawing and its host do that a layer manager shows. However much happens in one event, each kind
// of change is told once, after it or when asked for.
class LayerWatcher : private OdDbDatabaseReactor {
  public:
    struct Changes {
        bool drawing = false;             // another one was made current, or this one is going away
        bool current = false;             // the current layer is another one
        bool viewport = false;            // another space or viewport is active, or what it freezes
        bool filters = false;             // or something else that is kept beside them
        bool table = false;               // so many layers that all are to be read again
        std::vector<OdDbObjectId> layers; // added, changed or erased

        bool any() const { return drawing || current || viewport || filters || table || !layers.empty(); }
    };
    // More layers than this at once are told as the table.
    static constexpr std::size_t kFewLayers = 64;

    explicit LayerWatcher(std::function<void(const Changes&)> tell);
    ~LayerWatcher() override;
    LayerWatcher(const LayerWatcher&) = delete;
    LayerWatcher& operator=(const LayerWatcher&) = delete;

    // Null: none. What was not told yet of another one never is.
    void watch(OdDbDatabase* database);
    // False also when the drawing went away.
    bool watching() const { return m_watched != nullptr; }
    // Tells now.
    void deliver();

  private:
    void objectModified(OdDbDatabase&, OdDbObjectId id) override { note(id); }
    void objectAppended(OdDbDatabase&, OdDbObjectId id) override { note(id); }
    void objectErased(OdDbDatabase&, OdDbObjectId id) override { note(id); }
    void headerSysVarChanged(OdDbDatabase&, std::wstring_view name) override;
    void goodbye(OdDbDatabase&) override;
    void note(OdDbObjectId id);
    void later();

    std::function<void(const Changes&)> m_tell;
    OdDbDatabase* m_watched = nullptr;
    bool m_drawing = false, m_current = false, m_viewport = false, m_filters = false;
    std::unordered_set<OdDbObjectId> m_layers;
    tv::ui::Timer m_delivery;
    std::vector<tv::host::Subscription> m_subscriptions;
};

} // namespace kx::layers
