#pragma once

#include "platform/toolkit/ItemsWnd.h"

// A drop-down list, or with `editable` a drop-down list below an edit field. Its text is the selected item's,
// or what was typed.
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

    std::function<void()> onEditChange; // a person edited the text
    std::function<void()> onDropDown;   // before the list opens
    std::function<void()> onKillFocus;

    tv::ui::UserResult userEdit(std::wstring_view text);
    tv::ui::UserResult userDropDown();
    tv::ui::UserResult perform(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void OnKillFocus() override;

  protected:
    void selectionShown() override;

  private:
    bool m_editable;
    int m_droppedWidth = 0;
};
