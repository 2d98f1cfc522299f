#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tv::text {

struct CollationOptions {
    bool digitsAsNumbers = false; // "Layer2" before "Layer10"
    bool ignoreCase = false;      // "a" and "A" are equal; accents still count
};

// The order of names in lists, as readers of a language expect it. Cheap to make and to copy: the rules of a
// language are loaded once per process. Usable as the predicate of std::sort and std::map; equal does not mean
// identical.
class KXPLATFORM_EXPORT Collator {
  public:
    // Of the language that is current now; a later switch does not change this object.
    explicit Collator(CollationOptions options = {});
    Collator(CollationOptions options, std::uint16_t languageId);

    // Negative, 0 or positive.
    int compare(std::wstring_view a, std::wstring_view b) const;
    bool operator()(std::wstring_view a, std::wstring_view b) const { return compare(a, b) < 0; }

    // Comparing two keys byte by byte gives the same order. For lists of thousands make the keys first.
    std::string sortKey(std::wstring_view text) const;
    // The same behind what `keys` holds already.
    void appendSortKey(std::wstring_view text, std::string& keys) const;

  private:
    struct Rules;
    static std::shared_ptr<const Rules> rulesFor(CollationOptions options, std::uint16_t languageId);

    std::shared_ptr<const Rules> m_rules;
};

// Puts items in the order of their texts, each of which is asked for once. Items whose texts are equal keep
// their order.
KXPLATFORM_EXPORT void sortByText(std::vector<int>& items, bool ascending, const Collator& collator,
                                  const std::function<std::wstring(int item)>& textOf);

// One comparison in the current language.
KXPLATFORM_EXPORT int compare(std::wstring_view a, std::wstring_view b, CollationOptions options = {});

} // namespace tv::text
