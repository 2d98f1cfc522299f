#include "platform/toolkit/ModuleChain.h"

#include <algorithm>

namespace tv::ui {

ModuleChain& ModuleChain::instance() {
    static ModuleChain chain;
    return chain;
}

bool ModuleChain::add(const Module& module) {
    if (contains(module.name)) return false;
    for (const auto& t : module.templates)
        if (find(t.id) || find(std::string_view(t.name))) return false;
    const auto firstSystem = std::find_if(m_modules.begin(), m_modules.end(), [](const auto& m) { return m.system; });
    m_modules.insert(module.system ? firstSystem : m_modules.begin(), module);
    return true;
}

void ModuleChain::remove(std::string_view name) {
    std::erase_if(m_modules, [&](const Module& m) { return m.name == name; });
}

bool ModuleChain::contains(std::string_view name) const {
    return std::any_of(m_modules.begin(), m_modules.end(), [&](const auto& m) { return m.name == name; });
}

const DialogTemplate* ModuleChain::find(unsigned id) const {
    for (const auto& module : m_modules)
        for (const auto& t : module.templates)
            if (t.id == id) return &t;
    return nullptr;
}

const DialogTemplate* ModuleChain::find(std::string_view name) const {
    for (const auto& module : m_modules)
        for (const auto& t : module.templates)
            if (name == t.name) return &t;
    return nullptr;
}

std::vector<DialogTemplate> ModuleChain::all() const {
    std::vector<DialogTemplate> out;
    for (const auto& module : m_modules) out.insert(out.end(), module.templates.begin(), module.templates.end());
    return out;
}

} // namespace tv::ui
