#pragma once

#include "platform/drawing/OdDb.h"
#include "platform/text/CodePage.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tv::dwg {

enum class Encoding : std::uint8_t {
    kText,
    kBinary,    // two-byte group codes, R13 and later
    kBinaryR12, // one-byte group codes, 255 introducing a two-byte one
};

// How one file is written: what a new or changed tag must look like to match its neighbours.
struct DxfFormat {
    Encoding encoding = Encoding::kText;
    char lineBreak = '\n';        // the byte that ends a line; '\r' only in files without any '\n'
    std::string lineEnd = "\r\n"; // what new lines end with: as the file's first line
    bool padCodes = true;         // group codes right-aligned in three columns
    bool padIntegers = false;     // whole numbers right-aligned in six columns
    OdDb::DxfVersion version = OdDb::DxfVersion::kUnknown;
    // The version in whose form everything new is written: `version`, or where that is unknown R12 or the
    // newest, as the file looks.
    OdDb::DxfVersion form = OdDb::DxfVersion::kR2018;
    std::string codePage = "ANSI_1252"; // as declared by the file
    bool utf8 = false;                  // texts are UTF-8 (R2007 and later)
    // Of the declared name; nothing when nobody knows that name.
    std::optional<tv::text::CodePage> page;
};

} // namespace tv::dwg
