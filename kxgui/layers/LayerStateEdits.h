#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/LayerStates.h"

#include <string_view>

// Saving, restoring and renaming layer states as a person does it: each is one undo step named "_LAYER", and
// what is refused is said in one sentence and changes nothing.
namespace kx::layers {

// Whether a state can be saved under that name, or the state `renamed` be called so.
KXGUI_EXPORT tv::Problem canNameState(OdDbDatabase& database, std::wstring_view name,
                                      std::wstring_view renamed = {});

// The layers as they are now.
KXGUI_EXPORT tv::Problem saveState(OdDbDatabase& database, std::wstring_view name,
                                   std::wstring_view description, int mask);
// The new name may be the old one; the description is replaced.
KXGUI_EXPORT tv::Problem renameState(OdDbDatabase& database, std::wstring_view from, std::wstring_view to,
                                     std::wstring_view description);
KXGUI_EXPORT tv::Problem deleteState(OdDbDatabase& database, std::wstring_view name);
// `how.mask` decides alone what is restored. The layer that is current afterwards is never left frozen.
KXGUI_EXPORT tv::Problem restoreState(OdDbDatabase& database, std::wstring_view name,
                                      const tv::dwg::LayerStateRestore& how);

} // namespace kx::layers
