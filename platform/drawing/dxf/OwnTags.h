#pragma once

#include "platform/drawing/dxf/DxfTags.h"
#include "platform/drawing/dxf/RecordEditor.h"

#include <vector>

namespace tv::dwg {

// Tells an object's own tags from those that only travel with it: groups between "102 {..." and "102 }", an
// embedded object (from 101 on), extended data (from 1001 on) and comments.
class OwnTagFilter {
  public:
    enum class Answer : std::uint8_t { kOwn, kForeign, kEnd };
    Answer ask(int code, std::string_view value) {
        if (code == 1001 || code == 101) return Answer::kEnd;
        if (code == 102) {
            const std::string_view text = trimmed(value);
            m_inGroup = text.starts_with('{');
            return Answer::kForeign;
        }
        return m_inGroup || code == 999 ? Answer::kForeign : Answer::kOwn;
    }

  private:
    bool m_inGroup = false;
};

class OwnTags {
  public:
    OwnTags(const DxfFormat& format, std::string_view record) : m_cursor(format, record) {}
    bool next(Tag& tag) {
        while (m_cursor.next(tag)) {
            switch (m_filter.ask(tag.code, tag.value)) {
            case OwnTagFilter::Answer::kOwn:
                return true;
            case OwnTagFilter::Answer::kEnd:
                return false;
            case OwnTagFilter::Answer::kForeign:
                break;
            }
        }
        return false;
    }

  private:
    TagCursor m_cursor;
    OwnTagFilter m_filter;
};

// The positions of the own tags in a record being edited.
std::vector<std::size_t> ownTags(const RecordEditor& record);

} // namespace tv::dwg
