#pragma once

#include "platform/Export.h"
#include "platform/toolkit/Rect.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tv::ui {

// A dialog as a resource: its number, its name (the name of its Designer file and of its section in the message files)
// and its smallest size in dialog units.
struct DialogTemplate {
    unsigned id = 0;
    const char* name = "";
    CSize units;
    bool sizingFrame = false;
};

// A library that brings dialog templates. The spans must stay valid while it is in the chain.
struct Module {
    std::string name;
    bool system = false; // searched after all others
    std::span<const DialogTemplate> templates;
};

// The modules searched for resources, the newest first, system modules last.
class KXPLATFORM_EXPORT ModuleChain {
  public:
    static ModuleChain& instance();

    // False, and nothing changed, when a module of that name is registered already or one of its template numbers or
    // names is taken.
    bool add(const Module& module);
    void remove(std::string_view name);

    bool contains(std::string_view name) const;
    const DialogTemplate* find(unsigned id) const;
    const DialogTemplate* find(std::string_view name) const;
    // Every template of every module, for checks that go through all dialogs.
    std::vector<DialogTemplate> all() const;

  private:
    std::vector<Module> m_modules;
};

} // namespace tv::ui
