#include "kxgui/frame/VORDBaseTooltip.h"

void VORDBaseTooltip::Destroy() {
    m_owner = nullptr;
    m_active = false;
    m_tools.clear();
}

void VORDBaseTooltip::Activate(bool active) {
    m_active = active && exists();
    for (const Tool& tool : m_tools) show(tool);
}

int VORDBaseTooltip::AddTool(Tool tool) {
    if (!exists() || (!tool.control.empty() && !m_owner->GetDlgItem(tool.control))) return 0;
    m_tools.push_back(std::move(tool));
    show(m_tools.back());
    return 1;
}

void VORDBaseTooltip::show(const Tool& tool) {
    if (tool.control.empty() || !m_owner) return;
    const std::wstring text = tool.title.empty() ? tool.text : tool.title + L"\n" + tool.text;
    if (CWnd* control = m_owner->GetDlgItem(tool.control)) control->SetToolTip(m_active ? text : std::wstring());
}

const VORDBaseTooltip::Tool* VORDBaseTooltip::toolAt(CPoint point) const {
    if (!m_active) return nullptr;
    for (const Tool& tool : m_tools) {
        const CWnd* control = tool.control.empty() ? nullptr : m_owner->GetDlgItem(tool.control);
        if ((control ? control->GetWindowRect() : tool.area).PtInRect(point)) return &tool;
    }
    return nullptr;
}
