#include "platform/toolkit/Page.h"

#include "platform/toolkit/ModuleChain.h"

std::string CPage::templateName() const {
    const auto* found = tv::ui::ModuleChain::instance().find(m_templateId);
    return found ? found->name : "";
}
