#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/DisplayList.h"

// The pictures of a layer's states, 16 pixels square. The two states of each differ in shape, not in colour
// alone.
namespace kx::layers {

enum class LayerStatus { plain, current, xref };

KXGUI_EXPORT tv::ui::Picture statusIcon(LayerStatus status);
KXGUI_EXPORT tv::ui::Picture lampIcon(bool on);
KXGUI_EXPORT tv::ui::Picture frozenIcon(bool frozen);
KXGUI_EXPORT tv::ui::Picture lockIcon(bool locked);
KXGUI_EXPORT tv::ui::Picture plotIcon(bool plot);
// In viewports to come, and in the active one: a frame around the sun or the snow crystal.
KXGUI_EXPORT tv::ui::Picture newViewportIcon(bool frozen);
KXGUI_EXPORT tv::ui::Picture viewportIcon(bool frozen);

} // namespace kx::layers
