#include "platform/text/Collation.h"

#include "platform/text/IcuText.h"
#include "platform/text/Language.h"
#include "platform/text/MessageManager.h"

#include <unicode/coll.h>

#include <map>
#include <mutex>
#include <tuple>

namespace tv::text {

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

int compare(std::wstring_view a, std::wstring_view b, CollationOptions options) {
    return Collator(options).compare(a, b);
}

} // namespace tv::text
