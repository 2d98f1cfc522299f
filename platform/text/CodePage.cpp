#include "platform/text/CodePage.h"

#include "platform/text/CodePageEscapes.h"
#include "platform/text/Converters.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tv::text {
namespace {

bool isAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

std::string upperAscii(std::string_view name) {
    std::string upper(name);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return upper;
}

// ICU's name for a drawing's, both in upper case where letters matter.
std::string converterName(const std::string& name) {
    static constexpr std::pair<std::string_view, const char*> single[] = {
        {"KSC5601", "windows-949"},   {"KS_C_5601-1987", "windows-949"},
        {"BIG5", "windows-950"},      {"GB2312", "windows-936"},
        {"GBK", "windows-936"},       {"GB18030", "gb18030"},
        {"SHIFT_JIS", "windows-932"}, {"MACINTOSH", "macintosh"},
        {"MAC-ROMAN", "macintosh"},   {"ASCII", "us-ascii"},
        {"US-ASCII", "us-ascii"},     {"UNDEFINED", "us-ascii"},
    };
    for (const auto& [drawing, icu] : single)
        if (name == drawing) return icu;
    static constexpr std::pair<std::string_view, const char*> families[] = {
        {"ANSI_", "windows-"}, {"DOS", "ibm-"}, {"ISO8859-", "iso-8859-"}, {"ISO-8859-", "iso-8859-"}};
    for (const auto& [prefix, icu] : families) {
        const std::string number = name.starts_with(prefix) ? name.substr(prefix.size()) : std::string();
        if (!number.empty() && number.find_first_not_of("0123456789") == std::string::npos) return icu + number;
    }
    return {};
}

bool isJohab(std::string_view name) { return name == "JOHAB" || name == "ANSI_1361"; }

} // namespace

// UTF-8 when both are null.
struct CodePage::Converter {
    std::string name;
    std::unique_ptr<IcuConverter> icu;
    std::unique_ptr<JohabConverter> johab;

    DecodedText decode(std::string_view bytes) const {
        if (icu) return icu->decode(bytes);
        if (johab) return johab->decode(bytes);
        return {fromUtf8(bytes), isUtf8(bytes)};
    }
};

std::optional<CodePage> CodePage::find(std::string_view name) {
    auto converter = std::make_shared<Converter>();
    converter->name = upperAscii(name);
    if (converter->name == "UTF-8" || converter->name == "UTF8") return CodePage(std::move(converter));
    if (isJohab(converter->name)) {
        converter->johab = JohabConverter::open();
        if (!converter->johab) return std::nullopt;
        return CodePage(std::move(converter));
    }
    converter->icu = IcuConverter::open(converterName(converter->name));
    if (!converter->icu) return std::nullopt;
    return CodePage(std::move(converter));
}

CodePage CodePage::utf8() {
    auto converter = std::make_shared<Converter>();
    converter->name = "UTF-8";
    return CodePage(std::move(converter));
}

const std::string& CodePage::name() const { return m_converter->name; }

DecodedText CodePage::decode(std::string_view bytes) const {
    DecodedText decoded = isAscii(bytes) ? DecodedText{std::wstring(bytes.begin(), bytes.end()), true}
                                         : m_converter->decode(bytes);
    if (hasEscape(decoded.text)) decoded.text = resolveEscapes(decoded.text);
    return decoded;
}

EncodedText CodePage::encode(std::wstring_view text) const {
    EncodedText encoded;
    if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= 0 && c < 0x80; }))
        encoded.bytes.assign(text.begin(), text.end());
    else if (m_converter->icu)
        encoded = m_converter->icu->encode(text);
    else if (m_converter->johab)
        encoded = m_converter->johab->encode(text);
    else
        encoded = {toUtf8(text), std::all_of(text.begin(), text.end(), isCharacter)};
    if (encoded.exact && hasEscape(text)) encoded.exact = resolveEscapes(text) == text;
    return encoded;
}

} // namespace tv::text
