#include "platform/text/CodePageEscapes.h"

#include "platform/text/CodePage.h"

#include <unicode/utf16.h>

#include <optional>

namespace tv::text {
namespace {

std::optional<unsigned> hexAt(std::wstring_view text, std::size_t at) {
    if (at + 4 > text.size()) return std::nullopt;
    unsigned value = 0;
    for (const wchar_t c : text.substr(at, 4)) {
        const int digit = c >= L'0' && c <= L'9'   ? c - L'0'
                          : c >= L'A' && c <= L'F' ? c - L'A' + 10
                          : c >= L'a' && c <= L'f' ? c - L'a' + 10
                                                   : -1;
        if (digit < 0) return std::nullopt;
        value = value * 16 + static_cast<unsigned>(digit);
    }
    return value;
}

std::optional<wchar_t> multiByte(wchar_t page, unsigned code) {
    static constexpr const char* pages[] = {"ANSI_932", "ANSI_950", "ANSI_949", "ANSI_1361", "ANSI_936"};
    if (page < L'1' || page > L'5') return std::nullopt;
    const auto codePage = CodePage::find(pages[page - L'1']);
    if (!codePage) return std::nullopt;
    std::string bytes;
    if (code > 0xFF) bytes += static_cast<char>(code >> 8);
    bytes += static_cast<char>(code & 0xFF);
    const DecodedText decoded = codePage->decode(bytes);
    if (!decoded.exact || decoded.text.size() != 1) return std::nullopt;
    return decoded.text[0];
}

struct Escape {
    wchar_t character;
    std::size_t length;
};

std::optional<Escape> unicodeEscape(std::wstring_view text, std::size_t at) {
    const auto unit = hexAt(text, at + 3);
    if (!unit || *unit == 0) return std::nullopt;
    if (!U16_IS_SURROGATE(*unit)) return Escape{static_cast<wchar_t>(*unit), 7};
    const auto trail = text.substr(at + 7, 3) == L"\\U+" ? hexAt(text, at + 10) : std::nullopt;
    if (!U16_IS_LEAD(*unit) || !trail || !U16_IS_TRAIL(*trail)) return std::nullopt;
    return Escape{static_cast<wchar_t>(U16_GET_SUPPLEMENTARY(*unit, *trail)), 14};
}

std::optional<Escape> multiByteEscape(std::wstring_view text, std::size_t at) {
    const auto code = at + 3 < text.size() ? hexAt(text, at + 4) : std::nullopt;
    const auto character = code ? multiByte(text[at + 3], *code) : std::nullopt;
    return character ? std::optional(Escape{*character, 8}) : std::nullopt;
}

} // namespace

std::wstring resolveEscapes(std::wstring_view text) {
    std::wstring resolved;
    resolved.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::wstring_view start = text.substr(at, 3);
        const auto escape = start == L"\\U+"   ? unicodeEscape(text, at)
                            : start == L"\\M+" ? multiByteEscape(text, at)
                                               : std::nullopt;
        resolved += escape ? escape->character : text[at];
        at += escape ? escape->length : 1;
    }
    return resolved;
}

void appendEscape(std::string& bytes, wchar_t character) {
    auto unit = [&bytes](unsigned value) {
        bytes += "\\U+";
        for (int shift = 12; shift >= 0; shift -= 4)
            bytes += "0123456789ABCDEF"[(value >> shift) & 15];
    };
    const auto c = static_cast<UChar32>(character);
    if (c < 0x10000) return unit(static_cast<unsigned>(c));
    unit(U16_LEAD(c));
    unit(U16_TRAIL(c));
}

} // namespace tv::text
