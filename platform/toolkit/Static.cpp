#include "platform/toolkit/Static.h"

#include "platform/toolkit/Snapshot.h"

namespace tv::ui {
const char* iconName(Icon icon) {
    switch (icon) {
    case Icon::none: return "none";
    case Icon::error: return "error";
    case Icon::question: return "question";
    case Icon::warning: return "warning";
    case Icon::information: return "information";
    case Icon::application: return "application";
    }
    return "";
}
} // namespace tv::ui

void CImage::SetIcon(tv::ui::Icon icon) {
    m_icon = icon;
    tell(tv::ui::Change::look);
}

void CImage::describe(tv::ui::ControlSnapshot& out) const {
    CWnd::describe(out);
    out.icon = tv::ui::iconName(m_icon);
}
