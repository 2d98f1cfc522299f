#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerData.h"

#include <string>
#include <string_view>

// What a layer has, as texts in the current language.
namespace kx::layers {

KXGUI_EXPORT std::wstring yesNoText(bool yes);
// With the name of its colour book, when it has one.
KXGUI_EXPORT std::wstring layerColorText(const OdCmColor& color, std::wstring_view book = {});
KXGUI_EXPORT std::wstring layerWeightText(OdDb::LineWeight weight);
// The heading of a column of the layer manager.
KXGUI_EXPORT std::wstring layerColumnText(LayerColumn column);
// A name as a menu shows it, in which '&' marks letters otherwise.
KXGUI_EXPORT std::wstring literalMenuText(std::wstring_view name);

} // namespace kx::layers
