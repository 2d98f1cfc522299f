#include "kxgui/layers/LayerNamePattern.h"

#include "platform/text/Unicode.h"

namespace kx::layers {

std::string LayerNamePattern::foldName(std::wstring_view name) {
    return tv::text::toUtf8(tv::text::foldCase(name));
}

LayerNamePattern::LayerNamePattern(std::wstring_view text) {
    if (text.find_first_of(L"*?#@~,") == std::wstring_view::npos)
        m_plain = foldName(text);
    else
        m_wildcards.emplace(text);
}

bool LayerNamePattern::fits(std::string_view folded) const {
    return m_wildcards ? m_wildcards->fitsFolded(tv::text::fromUtf8(folded))
                       : folded.find(m_plain) != std::string_view::npos;
}

bool LayerNamePattern::narrows(const LayerNamePattern& other) const {
    return other.all() ||
           (!m_wildcards && !other.m_wildcards && m_plain.find(other.m_plain) != std::string::npos);
}

} // namespace kx::layers
