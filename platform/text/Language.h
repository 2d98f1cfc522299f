#pragma once

#include "platform/Export.h"

#include <cstdint>

namespace tv::text {

// A language the product is delivered in.
struct Language {
    std::uint16_t id;       // Windows language id, e.g. 1042
    const char* fileSuffix; // what its message files end in, e.g. "_kr.ini"
    const char* icuLocale;  // e.g. "ko_KR"
};

// The delivered language with this id; Korean for every other id.
KXPLATFORM_EXPORT const Language& languageFor(std::uint16_t id);

// The delivered language whose message files end like this file name, or null.
KXPLATFORM_EXPORT const Language* languageOfFile(const char* fileName);

} // namespace tv::text
