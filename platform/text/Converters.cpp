#include "platform/text/Converters.h"

#include "platform/text/CodePageEscapes.h"
#include "platform/text/IcuText.h"

#include <algorithm>
#include <array>

namespace tv::text {
namespace {

constexpr wchar_t replacement = 0xFFFD;
const auto noDescriptor = reinterpret_cast<iconv_t>(-1);

// The characters to encode: what is no character (half of a pair, a number beyond Unicode) becomes U+FFFD.
std::wstring charactersOf(std::wstring_view text, bool& exact) {
    std::wstring characters(text);
    for (wchar_t& c : characters) {
        if (isCharacter(c)) continue;
        c = replacement;
        exact = false;
    }
    return characters;
}

} // namespace

std::unique_ptr<IcuConverter> IcuConverter::open(const std::string& icuName) {
    if (icuName.empty()) return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    auto opened = std::make_unique<IcuConverter>();
    opened->m_converter.reset(ucnv_open(icuName.c_str(), &status));
    if (U_FAILURE(status)) return nullptr;
    UConverter* converter = opened->m_converter.get();
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setFallback(converter, false);
    const std::string ascii = "A\\U+0z~";
    const DecodedText wide = opened->decode(ascii);
    if (U_FAILURE(status) || !wide.exact || wide.text != std::wstring(ascii.begin(), ascii.end()))
        return nullptr;
    return opened;
}

DecodedText IcuConverter::decode(std::string_view bytes) const {
    UConverter* converter = m_converter.get();
    ucnv_resetToUnicode(converter);
    icu::UnicodeString units;
    DecodedText decoded;
    const char* source = bytes.data();
    const char* const end = source + bytes.size();
    std::array<UChar, 1024> buffer;
    for (;;) {
        UChar* target = buffer.data();
        UErrorCode status = U_ZERO_ERROR;
        ucnv_toUnicode(converter, &target, buffer.data() + buffer.size(), &source, end, nullptr, true, &status);
        units.append(buffer.data(), static_cast<int32_t>(target - buffer.data()));
        if (status == U_BUFFER_OVERFLOW_ERROR) continue;
        if (U_SUCCESS(status)) break;
        decoded.exact = false;
        std::array<char, 32> invalid;
        auto count = static_cast<int8_t>(invalid.size());
        UErrorCode ignored = U_ZERO_ERROR;
        ucnv_getInvalidChars(converter, invalid.data(), &count, &ignored);
        for (int i = 0; i < std::max<int>(count, 1); ++i)
            units.append(static_cast<UChar>(replacement));
    }
    decoded.text = fromIcu(units);
    return decoded;
}

EncodedText IcuConverter::encode(std::wstring_view text) const {
    UConverter* converter = m_converter.get();
    ucnv_resetFromUnicode(converter);
    EncodedText encoded;
    const icu::UnicodeString units = toIcu(charactersOf(text, encoded.exact));
    const UChar* source = units.getBuffer();
    const UChar* const end = source + units.length();
    std::array<char, 1024> buffer;
    for (;;) {
        char* target = buffer.data();
        UErrorCode status = U_ZERO_ERROR;
        ucnv_fromUnicode(converter, &target, buffer.data() + buffer.size(), &source, end, nullptr, true,
                         &status);
        encoded.bytes.append(buffer.data(), target);
        if (status == U_BUFFER_OVERFLOW_ERROR) continue;
        if (U_SUCCESS(status)) return encoded;
        std::array<UChar, 4> lacking;
        auto count = static_cast<int8_t>(lacking.size());
        UErrorCode ignored = U_ZERO_ERROR;
        ucnv_getInvalidUChars(converter, lacking.data(), &count, &ignored);
        for (const wchar_t c : fromIcu(icu::UnicodeString(lacking.data(), count)))
            appendEscape(encoded.bytes, c);
    }
}

std::unique_ptr<JohabConverter> JohabConverter::open() {
    std::unique_ptr<JohabConverter> opened(new JohabConverter);
    opened->m_decoder = iconv_open("WCHAR_T", "JOHAB");
    opened->m_encoder = iconv_open("JOHAB", "WCHAR_T");
    if (opened->m_decoder == noDescriptor || opened->m_encoder == noDescriptor) return nullptr;
    return opened;
}

JohabConverter::~JohabConverter() {
    if (m_decoder != noDescriptor) iconv_close(m_decoder);
    if (m_encoder != noDescriptor) iconv_close(m_encoder);
}

DecodedText JohabConverter::decode(std::string_view bytes) const {
    DecodedText decoded;
    for (std::size_t at = 0; at < bytes.size();) {
        if (static_cast<signed char>(bytes[at]) >= 0) {
            decoded.text += static_cast<wchar_t>(bytes[at++]);
            continue;
        }
        char pair[2] = {bytes[at], at + 1 < bytes.size() ? bytes[at + 1] : '\0'};
        wchar_t character = 0;
        char* source = pair;
        char* target = reinterpret_cast<char*>(&character);
        std::size_t sourceLeft = sizeof pair;
        std::size_t targetLeft = sizeof character;
        const bool known = at + 1 < bytes.size() &&
                           iconv(m_decoder, &source, &sourceLeft, &target, &targetLeft) != std::size_t(-1) &&
                           sourceLeft == 0;
        iconv(m_decoder, nullptr, nullptr, nullptr, nullptr);
        decoded.text += known ? character : replacement;
        decoded.exact &= known;
        at += known ? 2 : 1;
    }
    return decoded;
}

EncodedText JohabConverter::encode(std::wstring_view text) const {
    EncodedText encoded;
    for (wchar_t character : charactersOf(text, encoded.exact)) {
        if (character < 0x80) {
            encoded.bytes += static_cast<char>(character);
            continue;
        }
        char pair[2];
        char* source = reinterpret_cast<char*>(&character);
        char* target = pair;
        std::size_t sourceLeft = sizeof character;
        std::size_t targetLeft = sizeof pair;
        const bool known = iconv(m_encoder, &source, &sourceLeft, &target, &targetLeft) == 0 && targetLeft == 0;
        iconv(m_encoder, nullptr, nullptr, nullptr, nullptr);
        if (known)
            encoded.bytes.append(pair, sizeof pair);
        else
            appendEscape(encoded.bytes, character);
    }
    return encoded;
}

} // namespace tv::text
