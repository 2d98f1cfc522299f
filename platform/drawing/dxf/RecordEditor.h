#pragma once

#include "platform/Export.h"
#include "platform/drawing/dxf/DxfTags.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tv::dwg {

// A record taken apart into its tags for editing. A tag keeps the bytes it had until its own value is set to
// another; bytes that are no tag stay at the end. Works on a copy of the record's bytes.
class KXPLATFORM_EXPORT RecordEditor {
  public:
    RecordEditor(const DxfFormat& format, std::string_view record);

    static constexpr std::size_t npos = static_cast<std::size_t>(-1);
    std::size_t size() const { return m_tags.size(); }
    int code(std::size_t i) const { return m_tags[i].code; }
    Value value(std::size_t i) const;
    std::string_view raw(std::size_t i) const { return tag(i).value; }
    OdString text(std::size_t i) const;
    // First tag of that code in [from, to).
    std::size_t find(int code, std::size_t from = 0, std::size_t to = npos) const;

    // False when the value doesn't fit the tag's group code; nothing is changed then. Setting the value it has
    // already changes nothing either.
    bool set(std::size_t i, const Value& value);
    // Also false for a place before the first tag or behind the last.
    bool insert(std::size_t before, int code, const Value& value);
    void erase(std::size_t i);
    // Places as they are before the first one goes.
    void erase(const std::set<std::size_t>& places);

    bool edited() const { return m_edited; }
    std::string bytes() const;

  private:
    struct Part {
        int code;
        std::string bytes; // the whole tag
    };
    Tag tag(std::size_t i) const;

    const DxfFormat& m_format;
    std::vector<Part> m_tags;
    std::string m_rest;
    bool m_edited = false;
};

} // namespace tv::dwg
