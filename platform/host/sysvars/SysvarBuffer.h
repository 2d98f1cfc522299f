#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/host/sysvars/SysvarInfo.h"
#include "platform/host/sysvars/SysvarRules.h"

#include <cstdint>
#include <optional>

// How system variables travel in result buffers.
namespace tv::host {

// The result type a value of that type travels with.
KXPLATFORM_EXPORT int restypeOf(TavoSysvarType type);

// Makes `buffer` a single one with the variable's value.
void toBuffer(const SysvarInfo& info, const SysvarValue& value, OdResBuf& buffer);
// The value a buffer brings, not yet in any variable's form: an object as its handle, everything else as it
// stands.
SysvarValue fromBuffer(const OdResBuf& buffer);

// A colour as 32 bits with the method in the top byte, as buffers of type 5010 carry it.
KXPLATFORM_EXPORT std::int64_t codeOfColor(const OdCmColor& color);
// Nothing for a number that is no colour.
KXPLATFORM_EXPORT std::optional<OdCmColor> colorOfCode(std::int64_t code);

} // namespace tv::host
