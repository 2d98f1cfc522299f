#include "kxgui/frame/VORDBaseTooltip.h"

#include "kxgui/frame/ToolTips.h"

void VORDBaseTooltip::Destroy() {
    m_owner = nullptr;
    m_active = false;
    m_shown = nullptr;
    m_tools.clear();
}

void VORDBaseTooltip::Activate(bool active) {
    m_active = active && exists();
    for (const Tool& tool : m_tools)
        show(tool);
}

int VORDBaseTooltip::AddTool(Tool tool) {
    if (!exists() || (!tool.control.empty() && !m_owner->GetDlgItem(tool.control))) return 0;
    m_tools.push_back(std::move(tool));
    show(m_tools.back());
    return 1;
}

void VORDBaseTooltip::show(const Tool& tool) {
    if (tool.control.empty() || !m_owner) return;
    CWnd* control = m_owner->GetDlgItem(tool.control);
    if (control) control->SetToolTip(m_active ? kx::frame::toolTipText(tool) : std::wstring());
}

CSize VORDBaseTooltip::GetIconSize(const Tool& tool) const { return tool.image ? CSize{16, 16} : CSize{}; }

tv::ui::Icon VORDBaseTooltip::OnDrawIcon(const Tool& tool) const {
    const bool known = tool.image > 0 && tool.image <= static_cast<int>(tv::ui::Icon::application);
    return known ? static_cast<tv::ui::Icon>(tool.image) : tv::ui::Icon::none;
}

bool VORDBaseTooltip::OnShow(const Tool& tool) {
    m_shown = m_active && !tool.text.empty() ? &tool : nullptr;
    return m_shown != nullptr;
}

void VORDBaseTooltip::RelayEvent(const tv::ui::KeyEvent&) { m_shown = nullptr; }

const VORDBaseTooltip::Tool* VORDBaseTooltip::toolAt(CPoint point) const {
    if (!m_active) return nullptr;
    for (const Tool& tool : m_tools) {
        const CWnd* control = tool.control.empty() ? nullptr : m_owner->GetDlgItem(tool.control);
        if ((control ? control->GetWindowRect() : tool.area).PtInRect(point)) return &tool;
    }
    return nullptr;
}
