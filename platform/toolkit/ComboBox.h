#pragma once

#include "platform/toolkit/ItemsWnd.h"

// A drop-down list, or with `editable` a drop-down list below an edit field. Its text is the selected item's,
// or what was typed.
//
// While the list is open one of its entries at most is highlighted: by arrow keys, by what is typed, or by the
// pointer. The selection changes when the highlighted entry is accepted (Enter, Tab, F4, Alt+Up, Alt+Down, a
// click) and stays when the list is given up (Escape, the focus leaves). A list refilled while it is open keeps
// the highlighted text.
class KXPLATFORM_EXPORT CComboBox : public CItemsWnd {
  public:
    CComboBox(CWnd& parent, const char* name, bool editable = false)
        : CItemsWnd(parent, name), m_editable(editable) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::comboBox; }
    bool editable() const { return m_editable; }
    // The least width of the open list, in logical pixels; 0: as wide as the field.
    void SetDroppedWidth(int width) { m_droppedWidth = width; }
    int droppedWidth() const { return m_droppedWidth; }

    std::wstring GetLBText(int index) const { return itemText(index); } // empty when there is no such item

    // Opens or closes the list; no handler runs.
    void ShowDropDown(bool show = true);
    bool dropped() const { return m_dropped; }
    int highlighted() const { return m_highlighted; } // -1: none, also while the list is closed

    std::function<void()> onEditChange; // a person edited the text
    std::function<void()> onDropDown;   // before the list opens
    // The list was closed; after onSelChange when an entry was accepted.
    std::function<void(bool accepted)> onCloseUp;
    std::function<void()> onKillFocus;

    tv::ui::UserResult userEdit(std::wstring_view text);
    // Nothing when it is open already.
    tv::ui::UserResult userDropDown();
    tv::ui::UserResult userHighlight(int index); // -1: none
    // Closes the list, taking the highlighted entry or giving up. Nothing when it is closed.
    tv::ui::UserResult userCloseUp(bool accept);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void OnKillFocus() override;
    void OnEnable(bool enabled) override;
    void OnShowWindow(bool shown) override;

  protected:
    void selectionShown() override;
    void itemsShown() override;
    void OnWindowGone() override;

  private:
    void highlight(int index);
    void open();
    bool close();

    bool m_editable;
    int m_droppedWidth = 0;
    bool m_dropped = false;
    int m_highlighted = -1;
    std::wstring m_highlightedText;
};
