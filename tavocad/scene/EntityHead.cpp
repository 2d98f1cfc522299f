#include "tavocad/scene/EntityHead.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tv::scene {

using namespace tv::dwg;

bool HeadReader::take(const Tag& tag) {
    auto integer = [&](std::int64_t otherwise) {
        return static_cast<int>(
            std::clamp<std::int64_t>(integerOf(m_format, tag).value_or(otherwise), INT32_MIN, INT32_MAX));
    };
    switch (tag.code) {
    case 0:
    case 5:
    case 330:
        return true;
    case 6:
        head.linetype = tag.value;
        return true;
    case 8:
        head.layer = tag.value;
        return true;
    case 48:
        head.linetypeScale = numberOf(m_format, tag);
        return true;
    case 60:
        head.invisible = integer(0) != 0;
        return true;
    case 62:
        head.color = integer(256);
        return true;
    case 370:
        head.lineweight = integer(-1);
        return true;
    case 420:
        head.rgb = integer(0);
        return true;
    case 440:
        head.transparency = integerOf(m_format, tag).value_or(0);
        return true;
    default:
        return false;
    }
}

EntityHead headOf(const DxfFormat& format, std::string_view record) {
    HeadReader reader(format, record);
    for (Tag tag; reader.next(tag);) {
    }
    return reader.head;
}

double numberOf(const DxfFormat& format, const Tag& tag) {
    if (format.encoding == Encoding::kText) {
        // Up to fifteen digits over a small power of ten: both are exact, so their quotient is rounded once.
        static constexpr std::array<double, 16> powers{1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
        const char* p = tag.value.data();
        const char* const end = p + tag.value.size();
        while (p != end && *p == ' ')
            ++p;
        const bool negative = p != end && *p == '-';
        if (negative) ++p;
        std::uint64_t digits = 0;
        int count = 0;
        const char* point = nullptr;
        for (; p != end && count <= 15; ++p) {
            const auto digit = static_cast<unsigned char>(*p - '0');
            if (digit < 10) {
                digits = digits * 10 + digit;
                ++count;
            } else if (*p == '.' && !point) {
                point = p;
            } else {
                break;
            }
        }
        if (p == end && count > 0 && count <= 15) {
            const auto value =
                static_cast<double>(digits) / powers[static_cast<std::size_t>(point ? end - point - 1 : 0)];
            return negative ? -value : value;
        }
    }
    const auto value = realOf(format, tag);
    return value && std::isfinite(*value) ? *value : 0;
}

} // namespace tv::scene
