#include "tavocad/Languages.h"

#include "platform/text/Unicode.h"

#include <cstdlib>

namespace {
constexpr UiLanguage languages[] = {{L"kr", 1042, L"한국어", "ko"},
                                    {L"en", 1033, L"English", "en"},
                                    {L"jp", 1041, L"日本語", "ja"},
                                    {L"rs", 1049, L"Русский", "ru"},
                                    {L"ch", 2052, L"简体中文", "zh"}};
}

std::span<const UiLanguage> uiLanguages() { return languages; }

const UiLanguage* uiLanguage(std::wstring_view code) {
    for (const UiLanguage& language : languages)
        if (tv::text::equalNoCase(code, language.code)) return &language;
    return nullptr;
}

const UiLanguage* uiLanguage(std::uint16_t id) {
    for (const UiLanguage& language : languages)
        if (language.id == id) return &language;
    return nullptr;
}

const UiLanguage& systemUiLanguage() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        if (!value || !*value) continue;
        for (const UiLanguage& language : languages)
            if (std::string_view(value).starts_with(language.posix)) return language;
        break; // the first one set decides
    }
    return languages[0];
}
