#include "platform/text/Language.h"

#include <string_view>

namespace tv::text {
namespace {

// Korean comes first: it stands in for every language that is not delivered.
constexpr Language languages[] = {
    {1042, "_kr.ini", "ko_KR"}, {1033, "_en.ini", "en_US"}, {1041, "_jp.ini", "ja_JP"},
    {1049, "_rs.ini", "ru_RU"}, {2052, "_ch.ini", "zh_CN"},
};

} // namespace

const Language& languageFor(std::uint16_t id) {
    for (const Language& language : languages)
        if (language.id == id) return language;
    return languages[0];
}

const Language* languageOfFile(const char* fileName) {
    const std::string_view name(fileName);
    for (const Language& language : languages)
        if (name.ends_with(language.fileSuffix)) return &language;
    return nullptr;
}

} // namespace tv::text
