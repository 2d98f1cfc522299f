#pragma once

#include "kxgui/frame/VORDBaseTooltip.h"

namespace kx::frame {

// Sent to a window when nothing else is under way.
constexpr unsigned idleMessage = 0x036A;
// A window is asked for the shape of the cursor above it.
constexpr unsigned setCursorMessage = 0x0020;

// Switches the hints of a dialog or page on or off, under the product's name as title.
void enableToolTips(VORDBaseTooltip& tooltip, int enable);

// A hint's words: its title, if it has one, in a line above the text.
std::wstring toolTipText(const VORDBaseTooltip::Tool& tool);

} // namespace kx::frame
