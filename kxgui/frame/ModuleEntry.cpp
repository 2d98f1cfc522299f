#include "kxgui/frame/ModuleEntry.h"

namespace {

int g_ready = 0;

struct AtLoad {
    AtLoad() { kxGuiModuleEntry(1); }
    ~AtLoad() { kxGuiModuleEntry(0); }
};

} // namespace

void _Init_ZEL_CAD_CTRLdll() {}

int kxGuiModuleEntry(int attach) {
    auto& chain = tv::ui::ModuleChain::instance();
    const auto module = kx::frame::libraryModule();
    if (!attach) {
        if (g_ready) chain.remove(module.name);
        g_ready = 0;
        return 1;
    }
    // A second attach finds the name taken and fails, as a second copy of the library does; the first stays.
    const bool added = chain.add(module);
    if (added) g_ready = 1;
    return added ? 1 : 0;
}

int kxGuiModuleReady() { return g_ready; }

namespace {
const AtLoad atLoad;
}
