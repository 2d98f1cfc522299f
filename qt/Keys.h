#pragma once

#include "platform/toolkit/UserAction.h"

class QKeyEvent;

namespace tv::qt {

// The key as windows know it; Key::none for keys they have no name for (modifiers alone, media keys, ...).
ui::KeyEvent toKeyEvent(const QKeyEvent& event);

} // namespace tv::qt
