#pragma once

#include "kxgui/Export.h"

#include <string>
#include <string_view>
#include <vector>

namespace kx::layers {

// What is typed to find layers by their names, letter case aside. A plain text is found anywhere in a name.
// With one of * ? # @ ~ , it is a pattern of whole names: * any text, ? any character, # a digit, @ a letter,
// [abc] [a-c] [~abc] one character of these or none of these, ` takes the next character as it is, ~ in front
// means all other names, and a comma stands between alternatives.
class KXGUI_EXPORT LayerNamePattern {
  public:
    LayerNamePattern() = default; // fits every name
    explicit LayerNamePattern(std::wstring_view text);

    bool all() const { return m_alternatives.empty() && m_plain.empty(); }
    // `folded` is a name as foldName gives it.
    bool fits(std::string_view folded) const;
    // Every name that fits `this` fits `other`, as far as that is plain.
    bool narrows(const LayerNamePattern& other) const;

    static std::string foldName(std::wstring_view name);

  private:
    struct Piece {
        enum class Kind { text, any, one, digit, letter, set } kind = Kind::text;
        wchar_t ch = 0;                               // text
        bool inverted = false;                        // set
        std::vector<std::pair<wchar_t, wchar_t>> set; // from, to
        bool fits(wchar_t c) const;
    };
    struct Alternative {
        bool inverted = false;
        std::vector<Piece> pieces;
        bool fits(std::wstring_view name) const;
    };
    static Alternative read(std::wstring_view text);

    std::string m_plain; // folded
    std::vector<Alternative> m_alternatives;
};

} // namespace kx::layers
