#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdCmColor.h"

#include <optional>
#include <string>
#include <string_view>

// Colours as texts.
namespace kx::frame {

// What a person reads: "ByLayer", "ByBlock", the name of a standard colour (1 to 7), the number of another
// index, the hexadecimal text of a true colour. Names are in the current language.
KXGUI_EXPORT std::wstring colorText(const OdCmColor& color);

// What a person enters for an indexed colour: a number from 1 to 255, also as "Color_40" as lists of layers
// name it, or the name of a standard colour; with `special` also ByLayer or 256 and ByBlock or 0. Names are
// taken in the current language and in English, letter case aside. Nothing for anything else.
KXGUI_EXPORT std::optional<OdCmColor> indexedColorOf(std::wstring_view text, bool special);

// 0xRRGGBB, as the toolkit's swatches take it.
KXGUI_EXPORT std::uint32_t swatchRgb(tv::dwg::Rgb color);

} // namespace kx::frame
