#pragma once

#include "platform/toolkit/Static.h"

#include <QIcon>

namespace tv::qt {

// The standard pictures, drawn at the size they are asked for; null for Icon::none.
QIcon standardIcon(ui::Icon icon);

} // namespace tv::qt
