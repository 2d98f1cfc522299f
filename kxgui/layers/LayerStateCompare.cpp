#include "kxgui/layers/LayerStateCompare.h"

#include "kxgui/layers/LayerTexts.h"
#include "platform/text/Numbers.h"
#include "platform/text/Unicode.h"

#include <unordered_map>
#include <utility>

namespace kx::layers {
namespace {

using State = tv::dwg::LayerState;
using Kind = LayerDifference::Kind;

class Comparison {
  public:
    Comparison(std::vector<LayerDifference>& out, const OdString& layer, int mask)
        : m_out(out), m_layer(layer), m_mask(mask) {}

    void flag(int bit, LayerColumn column, bool saved, bool now) {
        if ((m_mask & bit) && saved != now) add(column, yesNoText(saved), yesNoText(now));
    }
    void text(int bit, LayerColumn column, const OdString& saved, const OdString& now) {
        if ((m_mask & bit) && !saved.isEmpty() && !now.isEmpty() &&
            !tv::text::equalNoCase(saved.view(), now.view()))
            add(column, saved.wstr(), now.wstr());
    }
    bool looksAt(int bit) const { return (m_mask & bit) != 0; }
    void add(LayerColumn column, std::wstring saved, std::wstring now) {
        m_out.push_back({Kind::property, m_layer.wstr(), column, std::move(saved), std::move(now)});
    }

  private:
    std::vector<LayerDifference>& m_out;
    const OdString& m_layer;
    int m_mask;
};

void compare(Comparison out, const State::Layer& saved, const State::Layer& now) {
    using namespace tv::dwg;
    out.flag(kLayerOn, LayerColumn::on, !saved.off, !now.off);
    out.flag(kLayerFrozen, LayerColumn::freeze, saved.frozen, now.frozen);
    out.flag(kLayerLocked, LayerColumn::lock, saved.locked, now.locked);
    out.flag(kLayerPlot, LayerColumn::plot, !saved.noPlot, !now.noPlot);
    out.flag(kLayerNewViewport, LayerColumn::newVpFreeze, saved.frozenInNew, now.frozenInNew);
    if (out.looksAt(kLayerColor) && saved.color != now.color)
        out.add(LayerColumn::color, layerColorText(saved.color), layerColorText(now.color));
    out.text(kLayerLinetype, LayerColumn::linetype, saved.linetype, now.linetype);
    if (out.looksAt(kLayerLineWeight) && saved.lineWeight != now.lineWeight)
        out.add(LayerColumn::lineweight, layerWeightText(saved.lineWeight), layerWeightText(now.lineWeight));
    out.text(kLayerPlotStyle, LayerColumn::plotStyle, saved.plotStyle, now.plotStyle);
    const auto percent = [](const State::Layer& layer) {
        return layer.transparency.value_or(OdCmTransparency()).percent();
    };
    if (out.looksAt(kLayerTransparency) && saved.transparency && percent(saved) != percent(now))
        out.add(LayerColumn::transparency, tv::text::printInt(percent(saved)),
                tv::text::printInt(percent(now)));
}

} // namespace

std::vector<LayerDifference> compareLayerStates(const State& saved, const State& now, int mask) {
    std::vector<LayerDifference> out;
    if (!saved.currentLayer.isEmpty() &&
        !tv::text::equalNoCase(saved.currentLayer.view(), now.currentLayer.view()))
        out.push_back(
            {Kind::current, {}, LayerColumn::status, saved.currentLayer.wstr(), now.currentLayer.wstr()});
    std::unordered_map<std::wstring, const State::Layer*> unseen;
    for (const State::Layer& layer : now.layers)
        unseen.emplace(tv::text::foldCase(layer.name.view()), &layer);
    for (const State::Layer& layer : saved.layers) {
        const auto known = unseen.find(tv::text::foldCase(layer.name.view()));
        if (known == unseen.end()) {
            out.push_back({Kind::gone, layer.name.wstr(), LayerColumn::name, {}, {}});
            continue;
        }
        if (!known->second) continue; // said twice; the first counts
        compare({out, layer.name, mask}, layer, *known->second);
        known->second = nullptr;
    }
    for (const State::Layer& layer : now.layers) {
        const auto known = unseen.find(tv::text::foldCase(layer.name.view()));
        if (known->second) out.push_back({Kind::added, layer.name.wstr(), LayerColumn::name, {}, {}});
    }
    return out;
}

} // namespace kx::layers
