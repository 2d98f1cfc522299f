#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerData.h"

#include <string_view>

class OdDbDatabase;

// What layers may be called and how they may be described.
namespace kx::layers {

inline constexpr std::size_t kLongestLayerText = 100; // characters, of names and descriptions
// Neither in names nor in descriptions.
inline constexpr std::wstring_view kNotInLayerTexts = L"<>/\\\":;?*|,`=";
// A layer the program's own tools rely on.
inline constexpr std::wstring_view kRegionViewLayer = L"G-REGION-VIEW";

enum class LayerTextFault {
    none,
    empty, // names only
    tooLong,
    character, // one of kNotInLayerTexts, or one that can't be seen
    taken,     // names only: another layer has it, or one that differs in letter case or Unicode form
};

LayerTextFault checkLayerDescription(std::wstring_view text);
// `layer` is the one that is to have the name, null for a new one. Without a layer table nothing is taken.
KXGUI_EXPORT LayerTextFault checkLayerName(const OdDbDatabase& database, std::wstring_view name,
                                           OdDbObjectId layer = {});

// Layer 0, the region view's and those of external references keep their names.
KXGUI_EXPORT bool mayRename(const T_LAYER_DATA& layer);
bool isLayerZero(std::wstring_view name);
bool isRegionView(std::wstring_view name);

// "도면층1", "도면층2", ... in the current language: the first that the table doesn't have. Without a table the
// bare word.
KXGUI_EXPORT OdString newLayerName(const OdDbDatabase& database);

} // namespace kx::layers
