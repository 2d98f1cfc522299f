#pragma once

#include "kxgui/Export.h"

// Does nothing. A host module calls it so that the linker ties the module to this library.
extern "C" KXGUI_EXPORT void _Init_ZEL_CAD_CTRLdll();
