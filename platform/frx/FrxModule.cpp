// Brings the framework's own dialog templates into the chain while the library is loaded.
#include "platform/frx/TaskDialog.h"
#include "platform/toolkit/ModuleChain.h"

#include <array>

namespace {

constexpr std::array<tv::ui::DialogTemplate, 1> templates{{
    {zel::frx::taskDialogTemplate, "IDD_TASK_DIALOG", {240, 70}, false},
}};

struct FrxModule {
    FrxModule() { tv::ui::ModuleChain::instance().add({"kxFrx", true, templates}); }
} const module;

} // namespace
