#include "kxgui/frame/ModuleEntry.h"

void _Init_ZEL_CAD_CTRLdll() {}
