#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/DisplayList.h"

#include <string_view>

namespace kx::controls {

// The end of a dimension line with that arrowhead, by its block's name ("_Dot"); null for blocks users drew.
KXGUI_EXPORT tv::ui::Picture arrowPicture(std::wstring_view block);

} // namespace kx::controls
