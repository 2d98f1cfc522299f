#include "platform/drawing/dxf/DxfTags.h"

#include "platform/text/Unicode.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace tv::dwg {
namespace {

static_assert(std::endian::native == std::endian::little, "binary drawing files are little-endian");

template <class T>
T load(std::string_view bytes) {
    T value{};
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

template <class T>
std::string store(T value) {
    std::string out(sizeof value, '\0');
    std::memcpy(out.data(), &value, sizeof value);
    return out;
}

// Size of the value in a binary file; 0 for zero-terminated texts, -1 for chunks with a length byte.
int binarySize(int code) {
    switch (valueKind(code)) {
    case ValueKind::kReal:
    case ValueKind::kPoint:
    case ValueKind::kInt64:
        return 8;
    case ValueKind::kInt8:
    case ValueKind::kInt16:
        return 2;
    case ValueKind::kInt32:
        return 4;
    case ValueKind::kBool:
        return 1;
    case ValueKind::kBinary:
        return -1;
    default:
        return 0;
    }
}

std::pair<std::int64_t, std::int64_t> integerRange(ValueKind kind) {
    switch (kind) {
    case ValueKind::kBool:
        return {0, 1};
    case ValueKind::kInt8:
    case ValueKind::kInt16:
        return {-32768, 32767};
    case ValueKind::kInt32:
        return {std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    default:
        return {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};
    }
}

std::string realText(double value) {
    std::array<char, 40> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    std::string out(buffer.data(), end);
    if (out.find_first_of(".e") == std::string::npos) out += ".0";
    return out;
}

// Right-aligned in as many columns as `old` took, when `old` was right-aligned at all.
std::string aligned(std::string text, std::string_view old) {
    if (!old.empty() && old.front() == ' ' && text.size() < old.size())
        text.insert(0, old.size() - text.size(), ' ');
    return text;
}

std::optional<std::string> rawInteger(const DxfFormat& format, int code, const Value& value,
                                      std::string_view old) {
    const auto* number = std::get_if<std::int64_t>(&value);
    if (!number) return std::nullopt;
    const ValueKind kind = valueKind(code);
    const auto [low, high] = integerRange(kind);
    if (*number < low || *number > high) return std::nullopt;
    if (format.encoding != Encoding::kText) {
        switch (binarySize(code)) {
        case 1:
            return store(static_cast<std::uint8_t>(*number));
        case 2:
            return store(static_cast<std::int16_t>(*number));
        case 4:
            return store(static_cast<std::int32_t>(*number));
        default:
            return store(*number);
        }
    }
    std::string text = std::to_string(*number);
    if (old.empty() && format.padIntegers) {
        const std::size_t width = kind == ValueKind::kInt32 ? 9 : 6;
        if (text.size() < width) text.insert(0, width - text.size(), ' ');
        return text;
    }
    return aligned(std::move(text), old);
}

std::optional<std::string> rawReal(const DxfFormat& format, const Value& value, std::string_view old) {
    double number = 0;
    if (const auto* real = std::get_if<double>(&value))
        number = *real;
    else if (const auto* whole = std::get_if<std::int64_t>(&value))
        number = static_cast<double>(*whole);
    else
        return std::nullopt;
    if (!std::isfinite(number)) return std::nullopt;
    if (format.encoding != Encoding::kText) return store(number);
    return aligned(realText(number), old);
}

std::string hexText(const Binary& bytes) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        out.push_back(kDigits[byte >> 4]);
        out.push_back(kDigits[byte & 15]);
    }
    return out;
}

Value binaryOf(const DxfFormat& format, std::string_view raw) {
    if (format.encoding != Encoding::kText) return Binary(raw.begin(), raw.end());
    raw = trimmed(raw);
    Binary out;
    out.reserve(raw.size() / 2);
    for (std::size_t i = 0; i + 1 < raw.size(); i += 2) {
        std::uint8_t byte = 0;
        const auto [end, error] = std::from_chars(raw.data() + i, raw.data() + i + 2, byte, 16);
        if (error != std::errc() || end != raw.data() + i + 2) return {};
        out.push_back(byte);
    }
    return out;
}

} // namespace

ScanResult BinaryScanner::next(Tag& tag) {
    std::size_t p = m_pos;
    const auto left = [&] { return m_bytes.size() - p; };
    if (left() == 0) return ScanResult::kEnd;
    tag.begin = p;
    int code = static_cast<unsigned char>(m_bytes[p]);
    if (m_r12 && code != 255) {
        ++p;
    } else {
        if (m_r12) ++p;
        if (left() < 2) return ScanResult::kTruncated;
        code = load<std::int16_t>(m_bytes.substr(p));
        p += 2;
    }
    if (code < -5 || code > 1071) return ScanResult::kBadCode;
    const int size = binarySize(code);
    std::size_t length = static_cast<std::size_t>(size);
    std::size_t behind = 0;
    if (size == 0) {
        const std::size_t zero = m_bytes.find('\0', p);
        if (zero == std::string_view::npos) return ScanResult::kTruncated;
        length = zero - p;
        behind = 1;
    } else if (size < 0) {
        if (left() < 1) return ScanResult::kTruncated;
        length = static_cast<unsigned char>(m_bytes[p++]);
    }
    if (left() < length + behind) return ScanResult::kTruncated;
    tag.code = code;
    tag.value = m_bytes.substr(p, length);
    m_pos = p + length + behind;
    tag.end = m_pos;
    return ScanResult::kTag;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

std::optional<double> realOf(const DxfFormat& format, const Tag& tag) {
    if (format.encoding != Encoding::kText) {
        if (tag.value.size() == 8 && binarySize(tag.code) == 8 && valueKind(tag.code) != ValueKind::kInt64)
            return load<double>(tag.value);
        const auto whole = integerOf(format, tag);
        return whole ? std::optional(static_cast<double>(*whole)) : std::nullopt;
    }
    std::string_view text = trimmed(tag.value);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<std::int64_t> integerOf(const DxfFormat& format, const Tag& tag) {
    if (format.encoding != Encoding::kText) {
        switch (binarySize(tag.code)) {
        case 1:
            return load<std::uint8_t>(tag.value);
        case 2:
            return load<std::int16_t>(tag.value);
        case 4:
            return load<std::int32_t>(tag.value);
        case 8:
            if (valueKind(tag.code) == ValueKind::kInt64) return load<std::int64_t>(tag.value);
            return std::nullopt;
        default:
            break;
        }
        if (valueKind(tag.code) == ValueKind::kBinary) return std::nullopt;
    }
    std::string_view text = trimmed(tag.value);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<OdDbHandle> handleOf(const DxfFormat&, const Tag& tag) {
    return OdDbHandle::fromAscii(tag.value);
}

OdString textOf(const DxfFormat& format, const Tag& tag) { return decodeText(format, tag.value); }

Value valueOf(const DxfFormat& format, const Tag& tag) {
    switch (valueKind(tag.code)) {
    case ValueKind::kReal:
    case ValueKind::kPoint:
        if (const auto value = realOf(format, tag)) return *value;
        return {};
    case ValueKind::kInt8:
    case ValueKind::kInt16:
    case ValueKind::kInt32:
    case ValueKind::kInt64:
    case ValueKind::kBool:
        if (const auto value = integerOf(format, tag)) return *value;
        return {};
    case ValueKind::kHandle:
        if (const auto value = handleOf(format, tag)) return *value;
        return textOf(format, tag);
    case ValueKind::kBinary:
        return binaryOf(format, tag.value);
    case ValueKind::kText:
        break;
    }
    return textOf(format, tag);
}

std::optional<std::string> rawValue(const DxfFormat& format, int code, const Value& value,
                                    std::string_view old) {
    switch (valueKind(code)) {
    case ValueKind::kReal:
    case ValueKind::kPoint:
        return rawReal(format, value, old);
    case ValueKind::kInt8:
    case ValueKind::kInt16:
    case ValueKind::kInt32:
    case ValueKind::kInt64:
    case ValueKind::kBool:
        return rawInteger(format, code, value, old);
    case ValueKind::kBinary: {
        const auto* bytes = std::get_if<Binary>(&value);
        if (!bytes || bytes->size() > 255) return std::nullopt;
        if (format.encoding == Encoding::kText) return hexText(*bytes);
        return std::string(bytes->begin(), bytes->end());
    }
    case ValueKind::kHandle:
    case ValueKind::kText:
        break;
    }
    if (const auto* handle = std::get_if<OdDbHandle>(&value)) return handle->ascii();
    if (const auto* text = std::get_if<OdString>(&value)) return encodeText(format, text->view());
    return std::nullopt;
}

std::string tagBytes(const DxfFormat& format, int code, std::string_view raw) {
    std::string out;
    if (format.encoding == Encoding::kText) {
        out = std::to_string(code);
        if (format.padCodes && out.size() < 3) out.insert(0, 3 - out.size(), ' ');
        out += format.lineEnd;
        out += raw;
        out += format.lineEnd;
        return out;
    }
    if (format.encoding == Encoding::kBinaryR12 && code >= 0 && code < 255) {
        out.push_back(static_cast<char>(code));
    } else {
        if (format.encoding == Encoding::kBinaryR12) out.push_back('\xFF');
        out += store(static_cast<std::int16_t>(code));
    }
    const int size = binarySize(code);
    if (size < 0) out.push_back(static_cast<char>(raw.size()));
    out += raw;
    if (size == 0) out.push_back('\0');
    return out;
}

} // namespace tv::dwg
