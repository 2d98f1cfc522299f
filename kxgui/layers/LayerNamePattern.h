#pragma once

#include "kxgui/Export.h"
#include "platform/text/Wildcards.h"

#include <optional>
#include <string>
#include <string_view>

namespace kx::layers {

// What is typed to find layers by their names, letter case aside. A plain text is found anywhere in a name; one
// with * ? # @ ~ or a comma is a pattern for whole names (tv::text::Wildcards).
class KXGUI_EXPORT LayerNamePattern {
  public:
    LayerNamePattern() = default; // fits every name
    explicit LayerNamePattern(std::wstring_view text);

    bool all() const { return !m_wildcards && m_plain.empty(); }
    // The text to be found, folded as names are; empty when it is no plain one.
    std::string_view plain() const { return m_plain; }
    // `folded` is a name as foldName gives it.
    bool fits(std::string_view folded) const;
    // No name fits this one that doesn't fit the other. False when that isn't plain to see.
    bool narrows(const LayerNamePattern& other) const;

    static std::string foldName(std::wstring_view name);

  private:
    std::string m_plain; // folded
    std::optional<tv::text::Wildcards> m_wildcards;
};

} // namespace kx::layers
