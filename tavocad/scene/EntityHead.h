#pragma once

#include "platform/drawing/dxf/OwnTags.h"

#include <optional>
#include <string_view>

namespace tv::scene {

// The common properties of an entity as its record has them, collected while its tags go by. Names are raw
// bytes of the file.
struct EntityHead {
    std::string_view layer, linetype;
    std::optional<int> color, rgb;
    double linetypeScale = 1;
    int lineweight = -1;
    std::int64_t transparency = 0;
    bool invisible = false;

    // Nothing but a layer, if that: everything else is the layer's.
    bool plain() const {
        return linetype.empty() && !color && !rgb && linetypeScale == 1 && lineweight == -1 &&
               transparency == 0;
    }
};

// Walks an entity's own tags and keeps the common ones. What comes before the second subclass mark is common.
class HeadReader {
  public:
    HeadReader(const tv::dwg::DxfFormat& format, std::string_view record)
        : m_format(format), m_tags(format, record) {}
    // The next tag that is none of the common ones.
    bool next(tv::dwg::Tag& tag) {
        while (m_tags.next(tag)) {
            if (tag.code == 100) {
                ++m_marks;
                continue;
            }
            if (m_marks < 2 && take(tag)) continue;
            return true;
        }
        return false;
    }
    EntityHead head;

  private:
    bool take(const tv::dwg::Tag& tag);

    const tv::dwg::DxfFormat& m_format;
    tv::dwg::OwnTags m_tags;
    int m_marks = 0;
};

// The head alone.
EntityHead headOf(const tv::dwg::DxfFormat& format, std::string_view record);

// A tag's number, quickly where it is short; 0 for what is none or is not finite.
double numberOf(const tv::dwg::DxfFormat& format, const tv::dwg::Tag& tag);

} // namespace tv::scene
