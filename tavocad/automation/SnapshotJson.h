#pragma once

#include "platform/toolkit/Snapshot.h"

#include <nlohmann/json.hpp>

// What a window shows, as the reply to "dialog": only what makes sense for a control's kind.
nlohmann::ordered_json toJson(const tv::ui::DialogSnapshot& snapshot);
