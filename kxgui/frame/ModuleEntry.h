#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/ModuleChain.h"

// Does nothing. A host module calls it so that the linker ties the module to this library.
extern "C" KXGUI_EXPORT void _Init_ZEL_CAD_CTRLdll();

// The module entry: `attach` nonzero registers the library's templates with the chain of modules, zero takes
// them out again. Returns 0 when the registration fails; the library then refuses to work: every DoModal of its
// dialogs and every box answers -1 and nothing is shown. The library runs it itself when it is loaded and
// unloaded.
extern "C" KXGUI_EXPORT int kxGuiModuleEntry(int attach);

// 1 when the library was registered at its load: what a program that loads it by hand asks before it goes on.
extern "C" KXGUI_EXPORT int kxGuiModuleReady();

namespace kx::frame {
// What the library brings into the chain.
tv::ui::Module libraryModule();
} // namespace kx::frame
