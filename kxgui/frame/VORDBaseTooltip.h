#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/Static.h"
#include "platform/toolkit/Wnd.h"

#include <deque>

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
    const std::deque<Tool>& tools() const { return m_tools; }
    // The icon area of a hint: 16 pixels square when the hint has an image number, else empty.
    CSize GetIconSize(const Tool& tool) const;
    // What is drawn in it: the standard icon of that number (tv::ui::Icon).
    tv::ui::Icon OnDrawIcon(const Tool& tool) const;
    // A hint is about to come up; false keeps it down: the tooltip is off, or the hint says nothing.
    bool OnShow(const Tool& tool);
    // A key is pressed in the owner: whatever hint is up goes away.
    void RelayEvent(const tv::ui::KeyEvent& key);
    const Tool* shown() const { return m_shown; }

    // The hint at a point of the dialog's client area, null when there is none or the tooltip is not active.
    const Tool* toolAt(CPoint point) const;

  private:
    void show(const Tool& tool);
    CWnd* m_owner = nullptr;
    bool m_active = false;
    const Tool* m_shown = nullptr;
    std::wstring m_title;
    std::deque<Tool> m_tools; // a shown hint stays where it is
};
