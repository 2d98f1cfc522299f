#include "platform/drawing/dxf/Resync.h"

#include "platform/drawing/dxf/DxfTags.h"

#include <algorithm>

namespace tv::dwg {
namespace {

constexpr std::size_t kLongestName = 64;

bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Type names are capital letters, digits and underscores; two letters tell them from numbers.
bool isTypeName(std::string_view name) {
    return name.size() <= kLongestName && std::count_if(name.begin(), name.end(), isUpper) >= 2 &&
           std::all_of(name.begin(), name.end(), [](char c) { return isUpper(c) || isDigit(c) || c == '_'; });
}

bool isVariableName(std::string_view name) { return name.starts_with('$') && isTypeName(name.substr(1)); }

bool startsRecord(std::string_view code, std::string_view value, bool inHeader) {
    return (code == "0" && isTypeName(value)) || (inHeader && code == "9" && isVariableName(value));
}

std::size_t inText(std::string_view bytes, std::size_t from, char lineBreak, bool inHeader) {
    std::string_view before; // the line that would be the group code
    std::size_t beforeAt = from;
    bool first = true;
    for (std::size_t at = from; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find(lineBreak, at), bytes.size());
        const std::string_view line = trimmed(bytes.substr(at, end - at));
        if (!first && startsRecord(before, line, inHeader)) return beforeAt;
        first = false;
        before = line;
        beforeAt = at;
        at = end + 1;
    }
    return std::string_view::npos;
}

std::size_t inBinary(std::string_view bytes, std::size_t from, bool oneByteCodes, bool inHeader) {
    const std::size_t width = oneByteCodes ? 1 : 2;
    for (std::size_t at = from; at + width < bytes.size(); ++at) {
        const char code = bytes[at];
        if ((code != 0 && code != 9) || (width == 2 && bytes[at + 1] != 0)) continue;
        const std::string_view rest = bytes.substr(at + width, kLongestName + 2);
        const std::size_t end = rest.find('\0');
        if (end != std::string_view::npos && startsRecord(code == 0 ? "0" : "9", rest.substr(0, end), inHeader))
            return at;
    }
    return std::string_view::npos;
}

} // namespace

std::size_t nextRecordStart(const DxfFormat& format, std::string_view bytes, std::size_t from, bool inHeader) {
    return format.encoding == Encoding::kText
               ? inText(bytes, from, format.lineBreak, inHeader)
               : inBinary(bytes, from, format.encoding == Encoding::kBinaryR12, inHeader);
}

} // namespace tv::dwg
