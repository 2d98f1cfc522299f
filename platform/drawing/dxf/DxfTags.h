#pragma once

#include "platform/Export.h"
#include "platform/drawing/Value.h"
#include "platform/drawing/dxf/DxfFormat.h"

#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace tv::dwg {

// A group code with its value as it stands in the file: in text files the line without its line end, in binary
// files the value's bytes (texts without the closing zero, binary chunks without their length byte).
struct Tag {
    int code = 0;
    std::string_view value;
    std::size_t begin = 0; // offset of the group code
    std::size_t end = 0;   // offset behind the whole tag
};

enum class ScanResult : std::uint8_t { kTag, kEnd, kBadCode, kTruncated };

// Walks the tags of a text file's bytes. Two lines are one tag; the last line may lack its end.
class TextScanner {
  public:
    TextScanner(std::string_view bytes, char lineBreak, std::size_t start = 0)
        : m_begin(bytes.data()), m_pos(bytes.data() + start), m_end(bytes.data() + bytes.size()),
          m_break(lineBreak) {}

    ScanResult next(Tag& tag) {
        const char* p = m_pos;
        if (p == m_end) return ScanResult::kEnd;
        tag.begin = static_cast<std::size_t>(p - m_begin);
        while (p != m_end && (*p == ' ' || *p == '\t' || (*p == '\n' && m_break == '\r')))
            ++p;
        if (p == m_end && m_break == '\r') return ScanResult::kEnd;
        const bool negative = p != m_end && *p == '-';
        if (negative) ++p;
        const char* digits = p;
        int code = 0;
        while (p != m_end && static_cast<unsigned char>(*p - '0') < 10 && p - digits < 6)
            code = code * 10 + (*p++ - '0');
        if (p == digits || p - digits == 6) return ScanResult::kBadCode;
        while (p != m_end && *p != m_break && (*p == ' ' || *p == '\t' || *p == '\r'))
            ++p;
        if (p == m_end) return ScanResult::kTruncated;
        if (*p != m_break) return ScanResult::kBadCode;
        if (++p == m_end) return ScanResult::kTruncated;
        // In a file of carriage returns some may be followed by a line feed.
        if (m_break == '\r' && *p == '\n' && ++p == m_end) return ScanResult::kTruncated;
        const auto rest = static_cast<std::size_t>(m_end - p);
        const auto* lineEnd = static_cast<const char*>(std::memchr(p, m_break, rest));
        const char* stop = lineEnd ? lineEnd : m_end;
        m_pos = lineEnd ? lineEnd + 1 : m_end;
        if (stop != p && (stop[-1] == '\r' || (stop[-1] == '\n' && m_break == '\r'))) --stop;
        tag.code = negative ? -code : code;
        tag.value = std::string_view(p, static_cast<std::size_t>(stop - p));
        tag.end = static_cast<std::size_t>(m_pos - m_begin);
        return ScanResult::kTag;
    }

  private:
    const char* m_begin;
    const char* m_pos;
    const char* m_end;
    char m_break;
};

// The same for the binary form. Nothing tells a wrong value from a right one, so only running out of bytes and
// group codes outside -5..1071 are faults.
class BinaryScanner {
  public:
    BinaryScanner(std::string_view bytes, bool r12, std::size_t start = 0)
        : m_bytes(bytes), m_pos(start), m_r12(r12) {}
    KXPLATFORM_EXPORT ScanResult next(Tag& tag);

  private:
    std::string_view m_bytes;
    std::size_t m_pos;
    bool m_r12;
};

// Walks the tags of one record in either form; stops silently at bytes that are no tag.
class TagCursor {
  public:
    TagCursor(const DxfFormat& format, std::string_view record)
        : m_text(record, format.lineBreak), m_binary(record, format.encoding == Encoding::kBinaryR12),
          m_isText(format.encoding == Encoding::kText) {}
    bool next(Tag& tag) { return (m_isText ? m_text.next(tag) : m_binary.next(tag)) == ScanResult::kTag; }

  private:
    TextScanner m_text;
    BinaryScanner m_binary;
    bool m_isText;
};

KXPLATFORM_EXPORT std::string_view trimmed(std::string_view text);

// Raw value to plain value; nothing when it can't be read as that.
KXPLATFORM_EXPORT std::optional<double> realOf(const DxfFormat& format, const Tag& tag);
KXPLATFORM_EXPORT std::optional<std::int64_t> integerOf(const DxfFormat& format, const Tag& tag);
KXPLATFORM_EXPORT std::optional<OdDbHandle> handleOf(const DxfFormat& format, const Tag& tag);
// Decoded by the file's code page; caret and \U+XXXX forms become the characters they stand for.
KXPLATFORM_EXPORT OdString textOf(const DxfFormat& format, const Tag& tag);
KXPLATFORM_EXPORT OdString decodeText(const DxfFormat& format, std::string_view raw);
// By the tag's group code; a point's coordinate is a real. Unreadable numbers are std::monostate.
KXPLATFORM_EXPORT Value valueOf(const DxfFormat& format, const Tag& tag);

// Plain value to raw value. `old` is the raw value it replaces, whose alignment and number style are kept in
// text files. The value must fit the group code: nothing is returned for one that doesn't (a text for a real,
// 70000 for 16 bits, a number that isn't finite).
KXPLATFORM_EXPORT std::optional<std::string> rawValue(const DxfFormat& format, int code, const Value& value,
                                                      std::string_view old = {});
KXPLATFORM_EXPORT std::string encodeText(const DxfFormat& format, std::wstring_view text);
// A name as it will be read back: it may spell a character as a file would ("\\U+0041").
OdString nameAsRead(const DxfFormat& format, std::wstring_view name);
// A whole tag from group code and raw value.
KXPLATFORM_EXPORT std::string tagBytes(const DxfFormat& format, int code, std::string_view raw);

} // namespace tv::dwg
