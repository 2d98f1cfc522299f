#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/Problem.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace tv::dwg {

// The kinds of records that others refer to by name.
enum class NamedKind : std::uint8_t {
    kLayer,
    kLinetype,
    kTextStyle,
    kDimStyle,
    kBlock,
    kRegApp,
    kView,
    kUcs,
};
inline constexpr std::size_t kNamedKinds = 8;

// Nothing for records nobody refers to by name.
KXPLATFORM_EXPORT std::optional<NamedKind> namedKindOf(OdDbObjectId record);

// Gives every reference to `from` the name `to`, ignoring case in `from`: in entities and their sub-entities in
// every space and block, in table records, objects, layer states, header variables and extended data. One undo
// step, one pass over the drawing; only records that refer are edited, and of those only the references' lines.
// The records so named themselves stay. Answers how many records were edited. Layer filters select by pattern
// and stay as they are.
KXPLATFORM_EXPORT std::size_t retargetReferences(OdDbDatabase& database, NamedKind kind, std::wstring_view from,
                                                 std::wstring_view to);
// The same from one record to another of the same kind, as merging needs it: references by handle follow too,
// and viewports, layer groups and layer states that then would list a layer twice keep one. Nothing is done for
// records of different kinds or drawings.
KXPLATFORM_EXPORT std::size_t retargetReferences(OdDbObjectId from, OdDbObjectId to);
// Many to one, still in one pass. Those of another kind or drawing, and `to` itself, are left out.
KXPLATFORM_EXPORT std::size_t retargetReferences(std::span<const OdDbObjectId> from, OdDbObjectId to);

// How many entities, in any space or block, refer by name to one of these records, which are of one kind.
// Sub-entities count with theirs. One pass over the drawing.
KXPLATFORM_EXPORT std::size_t countEntitiesNaming(std::span<const OdDbObjectId> records);

// What came with the external reference `from` ("from|Walls") is named after `to`, in all tables and with every
// reference, in one undo step. eDuplicate or eNotHandled, and no change, when one of the new names is taken or
// too long for the drawing's version.
Tavo::ErrorStatus renameDependents(OdDbDatabase& database, std::wstring_view from, std::wstring_view to);

} // namespace tv::dwg
