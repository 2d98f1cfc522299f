#pragma once

#include "platform/Export.h"
#include "platform/text/Unicode.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tv::text {

// Patterns for names, as drawing programs write them:
//   *  any characters, also none      ?  any one character
//   #  one digit                      @  one letter            .  one that is neither
//   [a-c_]  one of these              [~abc]  one that is none of these
//   ~  in front of a pattern: every text that does not fit it
//   ,  between two patterns: either   `  in front of a character: that character itself
// A bracket that is never closed and a last ` stand for themselves; blanks around a comma don't count. Letter
// case doesn't either. Costs at most the length of the pattern times that of the text.
class KXPLATFORM_EXPORT Wildcards {
  public:
    Wildcards() = default; // fits the empty text only
    explicit Wildcards(std::wstring_view pattern);

    bool fits(std::wstring_view text) const { return fitsFolded(foldCase(text)); }
    // The same for a text in its folded form (foldCase).
    bool fitsFolded(std::wstring_view folded) const;
    // The pattern is "*": there is no text it does not fit.
    bool fitsAll() const;

    // A pattern that fits this text alone.
    static std::wstring literal(std::wstring_view text);

  private:
    struct Token {
        enum Kind : std::uint8_t { kCharacter, kDigit, kLetter, kNeither, kOne, kMany, kSet };
        Kind kind = kCharacter;
        bool none = false; // of a set: none of its characters
        wchar_t character = 0;
        std::vector<std::pair<wchar_t, wchar_t>> ranges = {};
        bool fits(wchar_t c) const;
    };
    struct Alternative {
        bool negated = false;
        std::vector<Token> tokens;
        bool fits(std::wstring_view folded) const;
    };
    static Token setAt(std::wstring_view pattern, std::size_t& at);
    std::vector<Alternative> m_alternatives;
};

} // namespace tv::text
