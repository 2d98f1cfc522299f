#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdCmColor.h"

#include <vector>

namespace tv {
class SettingsStore;
}

// The colours chosen last, in the section "RecentColors" of the user's settings.
namespace kx::frame {

constexpr std::size_t recentColorCount = 8;

// The latest first. Empty without a store; entries that are no colour are left out.
KXGUI_EXPORT std::vector<OdCmColor> recentColors(const tv::SettingsStore* store);

// Puts an indexed or true colour in front and drops what is too much. By layer and by block are not remembered.
KXGUI_EXPORT void rememberColor(tv::SettingsStore* store, const OdCmColor& color);

} // namespace kx::frame
