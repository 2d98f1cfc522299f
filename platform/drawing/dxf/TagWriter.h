#pragma once

#include "platform/drawing/dxf/DxfTags.h"

#include <string>
#include <string_view>
#include <utility>

namespace tv::dwg {

// The bytes of a new record, tag by tag, written as the drawing's file writes them.
class TagWriter {
  public:
    explicit TagWriter(const DxfFormat& format) : m_format(format) {}

    // A value that doesn't fit the group code is left out and makes good() false.
    TagWriter& tag(int code, const Value& value) {
        if (const auto raw = rawValue(m_format, code, value))
            m_bytes += tagBytes(m_format, code, *raw);
        else
            m_good = false;
        return *this;
    }
    TagWriter& tag(int code, int value) { return tag(code, Value(std::int64_t{value})); }
    TagWriter& tag(int code, std::wstring_view text) { return tag(code, Value(OdString(text))); }
    TagWriter& tag(int code, const wchar_t* text) { return tag(code, std::wstring_view(text)); }
    // Three tags: the coordinates' codes are ten apart.
    TagWriter& point(int code, const OdGePoint3d& at) {
        return tag(code, Value(at.x)).tag(code + 10, Value(at.y)).tag(code + 20, Value(at.z));
    }
    // Type names, subclass marks and the like: ASCII, never translated.
    TagWriter& name(int code, std::string_view ascii) {
        m_bytes += tagBytes(m_format, code, ascii);
        return *this;
    }

    // Tags written before, by another writer of the same format.
    TagWriter& append(std::string_view tags) {
        m_bytes += tags;
        return *this;
    }

    bool good() const { return m_good; }
    std::string take() { return std::move(m_bytes); }

  private:
    const DxfFormat& m_format;
    std::string m_bytes;
    bool m_good = true;
};

} // namespace tv::dwg
