#include "tavocad/automation/Fields.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <limits>

using nlohmann::json;
using tv::text::format;
using tv::text::fromUtf8;

namespace {

template <class Element, class Convert>
std::vector<Element> array(const Fields& fields, const char* name, const wchar_t* wanted, Convert convert) {
    const json& value = fields.value(name);
    if (!value.is_array()) Fields::wrongType(name, wanted);
    std::vector<Element> elements;
    for (const json& element : value) {
        std::optional<Element> converted = convert(element);
        if (!converted) Fields::wrongType(name, wanted);
        elements.push_back(std::move(*converted));
    }
    return elements;
}

std::optional<int> toInteger(const json& value) {
    if (!value.is_number_integer()) return std::nullopt;
    // Unsigned numbers beyond the signed range would wrap.
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > std::numeric_limits<int>::max())
        return std::nullopt;
    const auto number = value.get<std::int64_t>();
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(number);
}

std::optional<std::wstring> toText(const json& value) {
    if (!value.is_string()) return std::nullopt;
    return fromUtf8(value.get_ref<const std::string&>());
}

} // namespace

Fields Fields::parse(std::string_view line) {
    try {
        json value = json::parse(line);
        if (value.is_object()) return Fields(std::move(value));
    } catch (const json::parse_error& error) {
        throw RequestError{
            format(VORD_ResourceString("IDS_TAVO_AUTO_NO_JSON", L"요청이 올바른 JSON이 아닙니다. %d번째 "
                                                                L"바이트에서 읽을 수 없습니다."),
                   static_cast<long long>(error.byte))};
    } catch (const json::exception&) {
        // A number no machine holds, say: the same to whoever sent it.
    }
    throw RequestError{VORD_ResourceString("IDS_TAVO_AUTO_NO_OBJECT", L"요청은 JSON 객체 하나여야 합니다. 예: "
                                                                      L"{\"do\":\"dialog\"}")
                           .c_str()};
}

void Fields::wrongType(const char* name, const wchar_t* wanted) {
    throw RequestError{
        format(VORD_ResourceString("IDS_TAVO_AUTO_WRONG_TYPE", L"항목 \"%s\"의 형식이 맞지 않습니다. 필요한 "
                                                               L"값: %s."),
               fromUtf8(name), wanted)};
}

const json* Fields::find(const char* name) const {
    const auto found = m_object.find(name);
    return found == m_object.end() || found->is_null() ? nullptr : &*found;
}

const json& Fields::value(const char* name) const {
    if (const json* found = find(name)) return *found;
    throw RequestError{format(
        VORD_ResourceString("IDS_TAVO_AUTO_MISSING", L"요청에 항목 \"%s\"이(가) 없습니다."), fromUtf8(name))};
}

std::wstring Fields::text(const char* name) const {
    if (auto text = toText(value(name))) return *text;
    wrongType(name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_TEXT", L"문자열"));
}

std::optional<std::wstring> Fields::optionalText(const char* name) const {
    return find(name) ? std::optional(text(name)) : std::nullopt;
}

int Fields::integer(const char* name) const {
    if (auto number = toInteger(value(name))) return *number;
    wrongType(name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_INTEGER", L"정수"));
}

std::optional<int> Fields::optionalInteger(const char* name) const {
    return find(name) ? std::optional(integer(name)) : std::nullopt;
}

std::optional<bool> Fields::optionalBool(const char* name) const {
    const json* found = find(name);
    if (!found) return std::nullopt;
    if (!found->is_boolean())
        wrongType(name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_BOOL", L"true 또는 false"));
    return found->get<bool>();
}

double Fields::number(const char* name) const {
    const json& found = value(name);
    if (!found.is_number()) wrongType(name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_NUMBER", L"숫자"));
    return found.get<double>();
}

std::vector<double> Fields::numbers(const char* name) const {
    return array<double>(*this, name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_NUMBERS", L"숫자 배열"),
                         [](const json& value) {
                             return value.is_number() ? std::optional(value.get<double>()) : std::nullopt;
                         });
}

std::vector<int> Fields::integers(const char* name) const {
    return array<int>(*this, name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_INTEGERS", L"정수 배열"), toInteger);
}

std::vector<std::pair<int, int>> Fields::integerPairs(const char* name) const {
    return array<std::pair<int, int>>(
        *this, name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_PAIRS", L"[정수, 정수]의 배열"),
        [](const json& value) {
            using Pair = std::pair<int, int>;
            if (!value.is_array() || value.size() != 2) return std::optional<Pair>();
            const auto first = toInteger(value[0]), second = toInteger(value[1]);
            return first && second ? std::optional(Pair(*first, *second)) : std::nullopt;
        });
}

std::vector<std::wstring> Fields::texts(const char* name) const {
    return array<std::wstring>(*this, name, VORD_ResourceString("IDS_TAVO_AUTO_TYPE_TEXTS", L"문자열 배열"),
                               toText);
}
