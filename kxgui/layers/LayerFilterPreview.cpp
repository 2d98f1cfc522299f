#include "kxgui/layers/LayerFilterPreview.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/LineWeightNames.h"
#include "kxgui/layers/LayerCellItems.h"
#include "kxgui/layers/LayerFilterRows.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace kx::layers {
namespace {

constexpr auto kPause = 150ms;
constexpr std::size_t kSlice = 2000; // layers

} // namespace

void LayerFilterPreview::readLayers() {
    m_layers.clear();
    const auto table = m_database ? m_database->layers() : nullptr;
    if (!table) return;
    m_current = currentLayer(*m_database);
    table->forEach([&](OdDbObjectId id) {
        if (!table->nameOf(id).view().starts_with(L'*')) m_layers.push_back(id);
    });
}

void LayerFilterPreview::start(LayerFilterExpression expression, bool contrary, bool atOnce) {
    m_expression = std::move(expression);
    m_contrary = contrary;
    m_found.clear();
    m_next = 0;
    m_timer.cancel();
    if (atOnce) return goOn();
    if (tv::ui::Toolkit* const toolkit = tv::ui::Toolkit::current())
        m_timer = toolkit->after(kPause, [this] { goOn(); });
}

void LayerFilterPreview::readViewport() {
    if (m_viewport.isNull()) return;
    m_overrides = tv::dwg::overridesInViewport(*m_database, m_viewport);
    if (const auto opened = m_viewport.open<OdDbViewport>())
        for (const OdDbObjectId layer : opened->frozenLayers())
            m_frozen.insert(layer);
}

T_LAYER_DATA LayerFilterPreview::read(OdDbObjectId layer) const {
    T_LAYER_DATA row = readLayer(layer, m_current);
    row.vpFrozen = m_frozen.contains(layer);
    if (const auto found = m_overrides.find(layer); found != m_overrides.end()) row.vp = found->second;
    return row;
}

void LayerFilterPreview::goOn() {
    if (m_database && m_expression.asksForUsage() && !std::exchange(m_usageKnown, true))
        if (const auto table = m_database->layers()) table->generateUsageData();
    if (m_database && m_expression.asksForViewport() && !std::exchange(m_viewportKnown, true)) readViewport();
    for (const std::size_t end = std::min(m_next + kSlice, m_layers.size()); m_next < end; ++m_next) {
        const OdDbObjectId id = m_layers[m_next];
        const auto record = id.open<OdDbLayerTableRecord>();
        if (!record) continue;
        const T_LAYER_DATA row = read(id);
        const bool fits = m_expression.fits(row, m_expression.asksForUsage() && record->isInUse());
        if (fits != m_contrary && (!m_within || m_within(row))) m_found.push_back(id);
    }
    if (m_next < m_layers.size()) {
        m_timer = tv::ui::Toolkit::current()->post([this] { goOn(); });
        return;
    }
    m_rows = std::move(m_found);
    m_found.clear();
    if (onDone) onDone();
}

std::vector<tv::ui::ListColumn> LayerFilterPreview::columns() {
    const auto title = [](FilterProperty property) { return LayerFilterRows::title(property); };
    return {{title(FilterProperty::name), 150},       {title(FilterProperty::on), 55},
            {title(FilterProperty::frozen), 55},      {title(FilterProperty::locked), 55},
            {title(FilterProperty::color), 110},      {title(FilterProperty::linetype), 100},
            {title(FilterProperty::lineWeight), 80},  {title(FilterProperty::plottable), 55},
            {title(FilterProperty::description), 160}};
}

tv::ui::ListCell LayerFilterPreview::cell(int row, int column) const {
    tv::ui::ListCell cell;
    if (row < 0 || row >= rowCount()) return cell;
    const T_LAYER_DATA layer = readLayer(m_rows[static_cast<std::size_t>(row)], m_current);
    switch (column) {
    case kName:
        cell.text = layer.name.wstr();
        break;
    case kOn:
        cell.text = filterStateText(layer.on);
        break;
    case kFrozen:
        cell.text = filterStateText(layer.frozen);
        break;
    case kLocked:
        cell.text = filterStateText(layer.locked);
        break;
    case kColor:
        cell.text = CLayerColorItem::nameOf(layer.color, layer.bookColor.view());
        cell.picture = tv::ui::colorPicture(kx::frame::swatchRgb(layer.color.rgb()));
        break;
    case kLinetype:
        cell.text = layer.linetype.wstr();
        break;
    case kLineWeight:
        cell.text = kx::frame::lineWeightText(layer.lineWeight, false);
        break;
    case kPlot:
        cell.text = filterStateText(layer.plot);
        break;
    case kDescription:
        cell.text = layer.description.wstr();
        break;
    default:
        break;
    }
    return cell;
}

} // namespace kx::layers
