#pragma once

#include "platform/Export.h"
#include "platform/drawing/HeaderValue.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/Value.h"
#include "platform/host/sysvars/SysvarInfo.h"

#include <optional>
#include <string>
#include <string_view>

// What system variables allow and how their values look, as plain functions on a row of the table.
namespace tv::host {

// Integers and colours are whole numbers (a colour in its 32-bit encoding), reals and angles doubles (angles in
// radians), texts and record names texts, points points.
using SysvarValue = dwg::Value;

KXPLATFORM_EXPORT SysvarValue defaultValue(const SysvarInfo& info);

// Where the value really lives: the homes with a choice decided for this drawing (null: none).
KXPLATFORM_EXPORT SysvarHome homeIn(const SysvarInfo& info, const OdDbDatabase* database);
KXPLATFORM_EXPORT bool needsDrawing(SysvarHome home);

// Brings `value` into the variable's form: whole numbers and reals stand for each other, a colour may be an
// index or a text, a 3D point without height is a 2D one and the other way round. False when it is no such
// thing.
KXPLATFORM_EXPORT bool toType(const SysvarInfo& info, SysvarValue& value);
// Whether a value of the variable's form is allowed.
KXPLATFORM_EXPORT bool isAllowed(const SysvarInfo& info, const SysvarValue& value);
// Equal values, names without regard to case.
KXPLATFORM_EXPORT bool isSame(const SysvarInfo& info, const SysvarValue& a, const SysvarValue& b);

// What a person reads and types. Parsing gives a value of the variable's form, or nothing.
KXPLATFORM_EXPORT std::wstring textOf(const SysvarInfo& info, const SysvarValue& value);
KXPLATFORM_EXPORT std::optional<SysvarValue> valueOf(const SysvarInfo& info, std::wstring_view text);

// To and from the form of a drawing's header, where angles of the groups 50 to 58 are degrees and colours
// indices. Nothing when the header's value makes no sense for the variable, or the header can't hold the value.
std::optional<SysvarValue> fromHeader(const SysvarInfo& info, const dwg::HeaderValue& value);
std::optional<dwg::HeaderValue> toHeader(const SysvarInfo& info, const SysvarValue& value, int group);

// The degrees with the fewest digits that are exactly `radians` when converted back (90 rather than
// 90.00000000000001); the plain quotient when there are none.
double degreesOf(double radians);
double radiansOf(double degrees);

// What the variable's values are called: "an integer", "a text", "the name of a layer" ...
std::wstring formText(const SysvarInfo& info);
// The colours that the header of a drawing can hold.
std::wstring indexColorText();
// Why a write was refused, in one sentence: the variable, the value, what is allowed.
KXPLATFORM_EXPORT tv::Problem refusal(const SysvarInfo& info, Tavo::ErrorStatus status, std::wstring_view value);
// The same for a name that no variable has.
KXPLATFORM_EXPORT tv::Problem unknownVariable(std::wstring_view name);

} // namespace tv::host
