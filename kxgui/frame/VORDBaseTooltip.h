#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/Wnd.h"

// A dialog's tooltip control: the hints of its controls and areas under one title.
class KXGUI_EXPORT VORDBaseTooltip {
  public:
    struct Tool {
        std::string control; // empty: an area
        CRect area;
        std::wstring title, text;
        int image = 0;
    };

    // The hints of `owner`'s controls; it must outlive the tooltip's window.
    void Create(CWnd& owner) { m_owner = &owner; }
    void Destroy();
    bool exists() const { return m_owner != nullptr; }

    void Activate(bool active);
    bool active() const { return m_active; }
    void SetTitle(std::wstring_view title) { m_title = title; }
    const std::wstring& title() const { return m_title; }

    // 1 when the tool was added, 0 when the tooltip does not exist or has no such control.
    int AddTool(Tool tool);
    const std::vector<Tool>& tools() const { return m_tools; }
    // The hint at a point of the dialog's client area, null when there is none or the tooltip is not active.
    const Tool* toolAt(CPoint point) const;

  private:
    void show(const Tool& tool);
    CWnd* m_owner = nullptr;
    bool m_active = false;
    std::wstring m_title;
    std::vector<Tool> m_tools;
};
