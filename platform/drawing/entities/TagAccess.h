#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"
#include "platform/drawing/dxf/RecordEditor.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

// Reading and writing an entity's own tags by subclass: the same group code means different things behind
// different subclass marks (and files before R13 have no marks at all).
namespace tv::dwg {

struct TagSource {
    std::string_view subclass; // empty: anywhere
    int code = 0;
    int occurrence = 0; // 0 the first
};

KXPLATFORM_EXPORT std::optional<Tag> findTag(const OdDbObject& object, const TagSource& source);
KXPLATFORM_EXPORT Value tagValue(const OdDbObject& object, const TagSource& source);
// How often the code occurs there.
KXPLATFORM_EXPORT int tagCount(const OdDbObject& object, std::string_view subclass, int code);

// Changes the tag or, for its first occurrence, adds it: behind the last of the codes that stand before it in
// `order`, else where the subclass begins. The object must be open for writing.
KXPLATFORM_EXPORT Tavo::ErrorStatus writeTag(const OdDbObject& object, const TagSource& source,
                                             const Value& value, std::span<const int> order = {});
KXPLATFORM_EXPORT Tavo::ErrorStatus removeTag(const OdDbObject& object, const TagSource& source);

// What every setter asks first.
KXPLATFORM_EXPORT Tavo::ErrorStatus checkWritable(const OdDbObject& object);

// --- long texts, cut into pieces ---
// Pieces of at most 250 bytes as the drawing's file writes them; at least one, which may be empty.
KXPLATFORM_EXPORT std::vector<OdString> textPieces(const DxfFormat& format, std::wstring_view text);
// The texts of the two codes behind that subclass mark, joined before they are decoded: pieces may part a
// character.
KXPLATFORM_EXPORT OdString joinedText(const OdDbObject& object, std::string_view subclass, int pieceCode,
                                      int lastCode);
// Writes the text over the tags with one of the two codes among `at` (positions in rising order): pieces with
// the one code, the last piece with the other. Pieces too many go, pieces missing come; where there is none yet
// they are put at `place`.
bool replacePieces(RecordEditor& record, const DxfFormat& format, std::vector<std::size_t> at,
                   std::size_t place, int pieceCode, int lastCode, std::wstring_view text);

} // namespace tv::dwg
