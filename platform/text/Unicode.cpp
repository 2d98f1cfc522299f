#include "platform/text/Unicode.h"

#include "platform/text/IcuText.h"

#include <unicode/locid.h>
#include <unicode/ucasemap.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>

namespace tv::text {
namespace {

bool isAscii(std::wstring_view text) {
    for (wchar_t c : text)
        if (static_cast<unsigned>(c) >= 0x80) return false;
    return true;
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
    const auto* p = reinterpret_cast<const uint8_t*>(bytes.data());
    const auto size = static_cast<int64_t>(bytes.size());
    for (int64_t i = 0; i < size;) {
        UChar32 c;
        U8_NEXT(p, i, size, c);
        if (c < 0) return false;
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
