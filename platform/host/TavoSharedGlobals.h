#pragma once

#include "platform/Export.h"

class KXPLATFORM_EXPORT TavoSharedGlobals {
  public:
    // Whether the warnings of `level` (1 to 5) are still to be shown: true as long as the variable EXPERT is
    // below it. Without system variables every warning is shown.
    static bool IsOnEXPERTMode(int level);
};
