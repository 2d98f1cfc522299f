#pragma once

#include "kxgui/layers/LayerFilterExpression.h"
#include "platform/toolkit/ListModel.h"
#include "platform/toolkit/Toolkit.h"

#include <functional>
#include <optional>
#include <unordered_set>
#include <vector>

class OdDbDatabase;

namespace kx::layers {

// Which layers of a drawing an expression selects, found out a slice at a time while the program waits, so that
// somebody can go on typing; and these layers as the rows of a list.
class KXGUI_EXPORT LayerFilterPreview : public tv::ui::ListModel {
  public:
    using Matcher = std::function<bool(const T_LAYER_DATA&)>;

    // `viewport`: the active one, or null. The database must outlive it; null: there are no layers.
    LayerFilterPreview(OdDbDatabase* database, OdDbObjectId viewport)
        : m_database(database), m_viewport(viewport) {}
    // Which layers there are now; to be called first.
    void readLayers();

    // Only layers that fit this are shown, whatever the expression says.
    void setWithin(Matcher within) { m_within = std::move(within); }
    // Begins anew, at once or after a pause in which somebody may go on typing; the rows stay what they were
    // until it is done. `contrary`: the layers the expression does not select.
    void start(LayerFilterExpression expression, bool contrary, bool atOnce = false);
    bool busy() const { return m_timer.pending(); }
    std::function<void()> onDone; // the rows are others now

    int layerCount() const { return static_cast<int>(m_layers.size()); }
    enum Column { kName, kOn, kFrozen, kLocked, kColor, kLinetype, kLineWeight, kPlot, kDescription, kColumns };
    static std::vector<tv::ui::ListColumn> columns();

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    tv::ui::ListCell cell(int row, int column) const override;

  private:
    void goOn();
    T_LAYER_DATA read(OdDbObjectId layer) const;
    void readViewport();
    OdDbDatabase* m_database;
    OdDbObjectId m_viewport, m_current;
    std::vector<OdDbObjectId> m_layers, m_rows, m_found;
    LayerFilterExpression m_expression;
    Matcher m_within;
    bool m_contrary = false, m_usageKnown = false, m_viewportKnown = false;
    std::unordered_set<OdDbObjectId> m_frozen;
    tv::dwg::LayerOverrideMap m_overrides;
    std::size_t m_next = 0;
    tv::ui::Timer m_timer;
};

} // namespace kx::layers
