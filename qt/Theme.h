#pragma once

#include "qt/Export.h"

class QPalette;

namespace tv::qt {

enum class Theme { light, dark, system };

// Gives the whole application one look, drawn the same on every desktop. `system` follows the desktop's palette
// as it was when the application started: dark when its windows are darker than their text.
KXGUIQT_EXPORT void applyTheme(Theme theme);

// The colours of a theme. Text stands out from its background by at least 4.5:1, disabled text by at least 3:1
// (the contrast ratio of WCAG 2.1, 1.4.3).
KXGUIQT_EXPORT QPalette themePalette(Theme theme);

} // namespace tv::qt
