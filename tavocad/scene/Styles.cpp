#include "tavocad/scene/Styles.h"

#include <bit>
#include <cmath>
#include <utility>

namespace tv::scene {
namespace {

constexpr std::size_t mostDashes = 32;     // of a pattern; a longer one is painted as its beginning
constexpr std::uint16_t mostScales = 4096; // different scales of one linetype; beyond them lines are continuous

std::uint64_t pairOf(std::uint32_t a, std::uint32_t b) { return std::uint64_t{a} << 32 | b; }

} // namespace

StyleTable::StyleTable() : m_linetypes(1), m_patterns(1), m_gates(2) { m_gates[shut].open = false; }

std::size_t StyleTable::Hash::operator()(const StyleSource& s) const {
    std::uint64_t hash = 0;
    auto mix = [&hash](std::uint64_t value) { hash = (std::rotl(hash, 23) ^ value) * 0x9E3779B97F4A7C15; };
    mix(pairOf(s.layer, s.gate));
    mix(pairOf(s.paint.rgb << 1 | s.paint.foreground, s.paintLayer));
    mix(pairOf(s.linetype, s.linetypeLayer));
    mix(std::bit_cast<std::uint64_t>(s.linetypeScale));
    mix(pairOf(s.lineweightLayer, s.alphaLayer));
    mix(pairOf(static_cast<std::uint16_t>(s.lineweight), s.alpha));
    return static_cast<std::size_t>(hash ^ hash >> 32);
}

void StyleTable::setLayers(std::vector<LayerState> layers) {
    m_layers = std::move(layers);
    resolveAll();
}

void StyleTable::setLinetypes(std::vector<Linetype> linetypes, double scale) {
    m_linetypes = std::move(linetypes);
    if (m_linetypes.empty()) m_linetypes.emplace_back();
    m_linetypeScale = scale;
    resolveAll();
}

std::uint32_t StyleTable::addLayer(LayerState layer) {
    m_layers.push_back(std::move(layer));
    return static_cast<std::uint32_t>(m_layers.size() - 1);
}

std::uint32_t StyleTable::intern(const StyleSource& source) {
    const auto [found, isNew] = m_numbers.try_emplace(source, static_cast<std::uint32_t>(m_sources.size()));
    if (isNew) {
        m_sources.push_back(source);
        m_styles.push_back(resolved(source));
    }
    return found->second;
}

std::uint32_t StyleTable::gate(std::uint32_t layer, std::uint32_t outer) {
    const auto [found, isNew] =
        m_gateNumbers.try_emplace(pairOf(layer, outer), static_cast<std::uint32_t>(m_gates.size()));
    if (isNew) m_gates.push_back({layer, outer, m_gates[outer].open && !m_layers[layer].frozen});
    return found->second;
}

// An inner gate has a higher number than the outer one.
void StyleTable::resolveAll() {
    for (std::size_t i = shut + 1; i < m_gates.size(); ++i)
        m_gates[i].open = m_gates[m_gates[i].outer].open && !m_layers[m_gates[i].layer].frozen;
    m_patterns.resize(1);
    m_patternNumbers.clear();
    for (std::size_t i = 0; i < m_sources.size(); ++i)
        m_styles[i] = resolved(m_sources[i]);
}

Style StyleTable::resolved(const StyleSource& source) {
    Style style;
    const LayerState& own = m_layers[source.layer];
    style.layer = source.layer;
    style.shown = own.on && !own.frozen && m_gates[source.gate].open;
    style.paint = source.paintLayer == none ? source.paint : m_layers[source.paintLayer].paint;
    style.lineweight =
        source.lineweightLayer == none ? source.lineweight : m_layers[source.lineweightLayer].lineweight;
    style.alpha = source.alphaLayer == none ? source.alpha : m_layers[source.alphaLayer].alpha;
    style.pattern =
        patternOf(source.linetypeLayer == none ? source.linetype : m_layers[source.linetypeLayer].linetype,
                  source.linetypeScale);
    return style;
}

std::uint32_t StyleTable::patternOf(std::uint32_t linetype, double scale) {
    if (linetype >= m_linetypes.size() || m_linetypes[linetype].dashes.empty()) return 0;
    auto& scales = m_patternNumbers[linetype];
    for (const auto& [known, number] : scales)
        if (known == scale) return number;
    Pattern pattern;
    const double factor = scale * m_linetypeScale;
    for (const double dash : m_linetypes[linetype].dashes) {
        if (pattern.dashes.size() == mostDashes) break;
        pattern.dashes.push_back(dash * factor);
        pattern.length += std::abs(dash * factor);
    }
    for (LineMark mark : m_linetypes[linetype].marks) {
        mark.at *= factor;
        mark.height *= factor;
        mark.offset = {mark.offset.x * factor, mark.offset.y * factor};
        if (mark.at <= pattern.length && pattern.marks.size() < mostDashes)
            pattern.marks.push_back(std::move(mark));
    }
    if (!(pattern.length > 0) || !std::isfinite(pattern.length) || scales.size() >= mostScales) return 0;
    m_patterns.push_back(std::move(pattern));
    scales.emplace_back(scale, static_cast<std::uint32_t>(m_patterns.size() - 1));
    return scales.back().second;
}

} // namespace tv::scene
