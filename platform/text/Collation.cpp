#include "platform/text/Collation.h"

#include "platform/text/IcuText.h"
#include "platform/text/Language.h"
#include "platform/text/MessageManager.h"

#include <unicode/coll.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <tuple>

namespace tv::text {
namespace {

// An item with its sort key: the first bytes of the key as a number decide most comparisons.
struct Keyed {
    std::uint64_t head = 0;
    std::size_t at = 0; // of the key's other bytes
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
    const icu::UnicodeString source = toIcu(text);
    if (!m_rules->icu)
        return {reinterpret_cast<const char*>(source.getBuffer()), std::size_t(source.length()) * 2};
    std::string key(static_cast<std::size_t>(source.length()) * 3 + 16, '\0');
    auto fill = [&] {
        return static_cast<std::size_t>(m_rules->icu->getSortKey(source, reinterpret_cast<uint8_t*>(key.data()),
                                                                 static_cast<int32_t>(key.size())));
    };
    const std::size_t needed = fill();
    if (needed > key.size()) {
        key.resize(needed);
        fill();
    }
    key.resize(needed ? needed - 1 : 0); // without the closing zero
    return key;
}

void sortByText(std::vector<int>& items, bool ascending, const Collator& collator,
                const std::function<std::wstring(int item)>& textOf) {
    std::string tails;
    std::vector<Keyed> keyed;
    keyed.reserve(items.size());
    for (const int item : items) {
        const std::string key = collator.sortKey(textOf(item));
        Keyed one{headOf(key), tails.size(), 0, item};
        if (key.size() > sizeof one.head) {
            one.size = static_cast<std::uint32_t>(key.size() - sizeof one.head);
            tails.append(key, sizeof one.head);
        }
        keyed.push_back(one);
    }
    const auto before = [&tails](const Keyed& a, const Keyed& b) {
        if (a.head != b.head) return a.head < b.head;
        const int order = std::memcmp(tails.data() + a.at, tails.data() + b.at, std::min(a.size, b.size));
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
