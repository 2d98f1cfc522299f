#include "platform/text/Collation.h"

#include "platform/text/IcuText.h"
#include "platform/text/Language.h"
#include "platform/text/MessageManager.h"

#include <unicode/coll.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <mutex>
#include <tuple>

namespace tv::text {
namespace {

// An item with its sort key: the first bytes of the key as a number decide most comparisons.
struct Keyed {
    std::uint64_t head = 0;
    std::size_t at = 0;
    std::uint32_t size = 0;
    int item = 0;
};

std::uint64_t headOf(std::string_view key) {
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < sizeof head; ++i)
        head = head << 8 | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    return head;
}

} // namespace

// Null when ICU has no collation data at all: code point order then.
struct Collator::Rules {
    std::unique_ptr<icu::Collator> icu;
};

std::shared_ptr<const Collator::Rules> Collator::rulesFor(CollationOptions options, std::uint16_t languageId) {
    static std::mutex mutex;
    static std::map<std::tuple<std::uint16_t, bool, bool>, std::shared_ptr<const Rules>> known;
    const Language& language = languageFor(languageId);
    const std::lock_guard lock(mutex);
    auto& rules = known[{language.id, options.digitsAsNumbers, options.ignoreCase}];
    if (!rules) {
        auto fresh = std::make_shared<Rules>();
        UErrorCode status = U_ZERO_ERROR;
        fresh->icu.reset(icu::Collator::createInstance(icu::Locale(language.icuLocale), status));
        if (fresh->icu) {
            fresh->icu->setStrength(options.ignoreCase ? icu::Collator::SECONDARY : icu::Collator::TERTIARY);
            fresh->icu->setAttribute(UCOL_NUMERIC_COLLATION, options.digitsAsNumbers ? UCOL_ON : UCOL_OFF,
                                     status);
        }
        rules = std::move(fresh);
    }
    return rules;
}

Collator::Collator(CollationOptions options) : Collator(options, VORD_MSGFunction::GetCurrentLanguageId()) {}

Collator::Collator(CollationOptions options, std::uint16_t languageId)
    : m_rules(rulesFor(options, languageId)) {}

int Collator::compare(std::wstring_view a, std::wstring_view b) const {
    if (!m_rules->icu) return a.compare(b);
    UErrorCode status = U_ZERO_ERROR;
    return m_rules->icu->compare(toIcu(a), toIcu(b), status);
}

std::string Collator::sortKey(std::wstring_view text) const {
    std::string key;
    appendSortKey(text, key);
    return key;
}

void Collator::appendSortKey(std::wstring_view text, std::string& keys) const {
    // Most texts are short and within 16 bits: these need no memory of their own.
    std::array<char16_t, 128> units;
    const bool plain = text.size() <= units.size() &&
                       std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= 0 && c < 0xD800; });
    icu::UnicodeString converted;
    const char16_t* source = units.data();
    auto length = static_cast<std::int32_t>(text.size());
    if (plain) {
        std::transform(text.begin(), text.end(), units.begin(),
                       [](wchar_t c) { return static_cast<char16_t>(c); });
    } else {
        converted = toIcu(text);
        source = converted.getBuffer();
        length = converted.length();
    }
    if (!m_rules->icu) {
        keys.append(reinterpret_cast<const char*>(source), static_cast<std::size_t>(length) * 2);
        return;
    }
    std::array<std::uint8_t, 512> key;
    const auto fill = [&](std::uint8_t* to, std::size_t room) {
        const auto needed = static_cast<std::size_t>(
            m_rules->icu->getSortKey(source, length, to, static_cast<std::int32_t>(room)));
        return needed ? needed - 1 : 0; // without the closing zero
    };
    const std::size_t size = fill(key.data(), key.size()), begin = keys.size();
    if (size < key.size()) {
        keys.append(reinterpret_cast<const char*>(key.data()), size);
        return;
    }
    keys.resize(begin + size + 1);
    fill(reinterpret_cast<std::uint8_t*>(keys.data() + begin), size + 1);
    keys.resize(begin + size);
}

void sortByText(std::vector<int>& items, bool ascending, const Collator& collator,
                const std::function<std::wstring(int item)>& textOf) {
    std::string keys;
    std::vector<Keyed> keyed;
    keyed.reserve(items.size());
    std::size_t alike = std::string::npos; // bytes all keys begin with
    for (const int item : items) {
        const std::size_t at = keys.size();
        collator.appendSortKey(textOf(item), keys);
        const std::size_t size = keys.size() - at;
        keyed.push_back({0, at, static_cast<std::uint32_t>(size), item});
        alike = std::min(alike, size);
        const auto own = keys.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = keys.begin() + static_cast<std::ptrdiff_t>(alike);
        alike = static_cast<std::size_t>(std::mismatch(keys.begin(), end, own).first - keys.begin());
    }
    for (Keyed& one : keyed) {
        one.at += alike;
        one.size -= static_cast<std::uint32_t>(alike);
        one.head = headOf(std::string_view(keys).substr(one.at, one.size));
    }
    const auto before = [&keys](const Keyed& a, const Keyed& b) {
        if (a.head != b.head) return a.head < b.head;
        const int order = std::memcmp(keys.data() + a.at, keys.data() + b.at, std::min(a.size, b.size));
        return order != 0 ? order < 0 : a.size < b.size;
    };
    if (ascending)
        std::stable_sort(keyed.begin(), keyed.end(), before);
    else
        std::stable_sort(keyed.begin(), keyed.end(),
                         [&](const Keyed& a, const Keyed& b) { return before(b, a); });
    std::transform(keyed.begin(), keyed.end(), items.begin(), [](const Keyed& one) { return one.item; });
}

int compare(std::wstring_view a, std::wstring_view b, CollationOptions options) {
    return Collator(options).compare(a, b);
}

} // namespace tv::text
