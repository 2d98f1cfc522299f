#include "platform/text/Unicode.h"

#include "platform/text/IcuText.h"

#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/ucasemap.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace tv::text {
namespace {

bool isAscii(std::wstring_view text) {
    for (wchar_t c : text)
        if (static_cast<unsigned>(c) >= 0x80) return false;
    return true;
}

constexpr std::size_t lookBehind = 3;
constexpr std::size_t blockSize = 128;

// All bits moved up by one place.
constexpr std::uint8_t up(std::uint8_t bits) { return static_cast<std::uint8_t>(bits + bits); }

// Whether each byte of the block may stand behind the three before it. Two loops without branches or
// comparisons of size, which the compiler makes loops over many bytes at a time: whole drawings and message
// files go through here. What is asked is the highest bit of each term. The second loop is needed only for
// blocks with rare leading bytes.
bool isBlockUtf8(const std::uint8_t* p) {
    std::uint8_t wrong = 0, rare = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        const std::uint8_t c = p[i], p1 = *(p + i - 1), p2 = *(p + i - 2), p3 = *(p + i - 3);
        const std::uint8_t lead2 = p1 & up(p1);              // 11......
        const std::uint8_t lead3 = p2 & up(p2) & up(up(p2)); // 111.....
        const std::uint8_t lead4 = p3 & up(p3) & up(up(p3)) & up(up(up(p3)));
        const std::uint8_t follows = c & ~up(c);                   // 10......
        const std::uint8_t surrogate = p1 == 0xED ? up(up(c)) : 0; // 101..... behind 0xED
        wrong |= ((lead2 | lead3 | lead4) ^ follows) | surrogate;
        const std::uint8_t never = (c & 0xFE) == 0xC0 ? 0x80 : 0;
        const std::uint8_t overlong = p1 == 0xE0 ? 0x80 : 0;
        rare |= never | overlong | (p1 & up(p1) & up(up(p1)) & up(up(up(p1))));
    }
    if ((wrong | rare) < 0x80) return true;
    for (std::size_t i = 0; i < blockSize; ++i) {
        const std::uint8_t c = p[i], p1 = *(p + i - 1);
        const bool overlong = ((c & 0xFE) == 0xC0) | ((p1 == 0xE0) & (c < 0xA0)) | ((p1 == 0xF0) & (c < 0x90));
        const bool beyond = (p1 > 0xF4) | ((p1 == 0xF4) & (c >= 0x90));
        if (overlong || beyond) return false;
    }
    return wrong < 0x80;
}

wchar_t asciiFold(wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; }

} // namespace

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring out;
    out.reserve(bytes.size());
    const auto* p = reinterpret_cast<const uint8_t*>(bytes.data());
    const auto size = static_cast<int64_t>(bytes.size());
    for (int64_t i = 0; i < size;) {
        if (p[i] < 0x80) {
            out.push_back(static_cast<wchar_t>(p[i++]));
            continue;
        }
        int64_t next = i;
        UChar32 c;
        U8_NEXT(p, next, size, c);
        if (c < 0) {
            out.push_back(0xFFFD);
            ++i;
        } else {
            out.push_back(static_cast<wchar_t>(c));
            i = next;
        }
    }
    return out;
}

std::string toUtf8(std::wstring_view text) {
    std::string out;
    out.reserve(text.size());
    for (wchar_t w : text) {
        auto c = static_cast<UChar32>(w);
        if (c < 0 || c > 0x10FFFF || U_IS_SURROGATE(c)) c = 0xFFFD;
        uint8_t buffer[4];
        int32_t length = 0;
        U8_APPEND_UNSAFE(buffer, length, c);
        out.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(length));
    }
    return out;
}

bool isUtf8(std::string_view bytes) {
    // The first block is checked in a copy that has zeros before it; so is the last, which always has a zero
    // behind it that ends a sequence cut off there. Those between are checked where they are.
    std::array<std::uint8_t, lookBehind + blockSize> copy{};
    for (std::size_t at = 0; at <= bytes.size(); at += blockSize) {
        const auto* block = reinterpret_cast<const std::uint8_t*>(bytes.data()) + at;
        if (at == 0 || bytes.size() - at < blockSize) {
            const std::string_view part = bytes.substr(at, blockSize);
            copy.fill(0);
            part.copy(reinterpret_cast<char*>(copy.data()) + lookBehind, part.size());
            if (at > 0) std::memcpy(copy.data(), block - lookBehind, lookBehind);
            block = copy.data() + lookBehind;
        }
        if (!isBlockUtf8(block)) return false;
    }
    return true;
}

std::wstring toUpper(std::wstring_view text) { return fromIcu(toIcu(text).toUpper(icu::Locale::getRoot())); }

std::wstring toLower(std::wstring_view text) { return fromIcu(toIcu(text).toLower(icu::Locale::getRoot())); }

std::wstring foldCase(std::wstring_view text) {
    if (isAscii(text)) {
        std::wstring out(text);
        for (wchar_t& c : out)
            c = asciiFold(c);
        return out;
    }
    return fromIcu(toIcu(text).foldCase());
}

std::wstring foldComposed(std::wstring_view text) {
    if (isAscii(text)) return foldCase(text);
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* composer = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) return foldCase(text);
    const icu::UnicodeString folded = composer->normalize(toIcu(text), status).foldCase();
    const icu::UnicodeString composed = composer->normalize(folded, status);
    return U_FAILURE(status) ? foldCase(text) : fromIcu(composed);
}

int compareNoCase(std::wstring_view a, std::wstring_view b) {
    if (isAscii(a) && isAscii(b)) {
        const std::size_t common = std::min(a.size(), b.size());
        for (std::size_t i = 0; i < common; ++i)
            if (const int d = asciiFold(a[i]) - asciiFold(b[i])) return d;
        return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
    }
    return foldCase(a).compare(foldCase(b));
}

} // namespace tv::text
