#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <string_view>
#include <vector>

// Every text an entity carries, for those who search, replace and spell.
namespace tv::dwg {

enum class TextFieldKind : std::uint8_t {
    kText,
    kMText,
    kAttributeValue,
    kAttributeTag,
    kAttributePrompt,
    kDimensionText,
    kLeaderText,
    kTableCell,
    kTolerance,
    kHyperlink,
    kHyperlinkDescription,
};

struct TextField {
    TextFieldKind kind = TextFieldKind::kText;
    OdDbObjectId entity;     // the attribute itself for an insert's attributes
    int row = 0, column = 0; // of a table's cell
    bool formatted = false;  // the value is contents as in MTextRuns.h
    OdString value;
};

// In the order a reader meets them; empty texts are left out. An insert brings its attributes' texts.
KXPLATFORM_EXPORT std::vector<TextField> textFieldsOf(OdDbObjectId entity);
// Writes another value to that place. What it says in `field.value` doesn't count.
KXPLATFORM_EXPORT Tavo::ErrorStatus setTextField(const TextField& field, std::wstring_view value);

} // namespace tv::dwg
