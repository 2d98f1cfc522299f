#pragma once

#include "platform/drawing/OdDbObject.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/entities/TagAccess.h"

#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

namespace tv::dwg {

// Objects whose parts use the same group codes for different things are read and written by part: the tags from
// one subclass mark (group code 100) to the next. An object without the mark is one part as a whole, as the
// oldest versions write it.

// First own tag of that code in the part.
std::optional<Tag> findIn(const OdDbObject& object, std::string_view subclass, int code);
// The positions of the part's own tags, its mark included.
std::vector<std::size_t> tagsIn(const RecordEditor& record, std::string_view subclass);
// The place in the record for a new tag of the part: behind the last of the tags `behind`, or at the part's
// end.
std::size_t placeIn(const RecordEditor& record, const std::vector<std::size_t>& part,
                    std::initializer_list<int> behind);

double realIn(const OdDbObject& object, std::string_view subclass, int code, double otherwise = 0);
int integerIn(const OdDbObject& object, std::string_view subclass, int code, int otherwise = 0);
OdString textIn(const OdDbObject& object, std::string_view subclass, int code);
OdDbObjectId idIn(const OdDbObject& object, std::string_view subclass, int code);
// From three codes ten apart; a missing coordinate is the fallback's.
OdGePoint3d pointIn(const OdDbObject& object, std::string_view subclass, int code,
                    const OdGePoint3d& otherwise = {});

// One tag of a part and its new value; tags the part lacks are added behind the last of `behind`.
struct TagValue {
    int code;
    Value value;
};
// All values in one change, or none: eWrongType when one doesn't fit its group code, eNotHandled when the
// object has no such part.
Tavo::ErrorStatus setIn(OdDbObject& object, std::string_view subclass, const std::vector<TagValue>& values,
                        std::initializer_list<int> behind = {});

} // namespace tv::dwg
