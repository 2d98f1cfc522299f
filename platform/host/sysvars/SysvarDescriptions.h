#pragma once

#include "platform/Export.h"
#include "platform/host/sysvars/SysvarInfo.h"
#include "platform/text/OdString.h"
#include "platform/text/ResourceString.h"

#include <span>
#include <string_view>

// What a person reads about a system variable, in the current language.
namespace tv::host {

// What the variable sets, without a full stop: "Direction of angles: 0 counterclockwise, 1 clockwise". Letter
// case does not matter; empty for an unknown name.
KXPLATFORM_EXPORT OdString sysvarDescription(std::wstring_view name);
// Where the value lives, in a few words: "Drawing", "User profile" ...
KXPLATFORM_EXPORT OdString sysvarHomeText(SysvarHome home);
// The values the variable takes: "0 – 8", "5, 6, 8", "> 0"; where they have no bounds, what they are: "a text".
KXPLATFORM_EXPORT OdString sysvarRangeText(const SysvarInfo& info);

// --- the descriptions, in the parts of the table; the key of a text is kSysvarTextKey and the variable's name
// ---
inline constexpr std::string_view kSysvarTextKey = "IDS_TAVO_SYSVAR_";
std::span<const text::TableText> generalDescriptions();
std::span<const text::TableText> dimensionDescriptions();
std::span<const text::TableText> ucsDescriptions();
std::span<const text::TableText> surfaceDescriptions();
std::span<const text::TableText> userDescriptions();

// All of them by the names of their variables.
KXPLATFORM_EXPORT std::span<const text::TableText* const> sysvarDescriptions();

} // namespace tv::host
