#pragma once

#include "platform/toolkit/ItemsWnd.h"

// A short list of texts. Long lists with columns are CListCtrl.
class KXPLATFORM_EXPORT CListBox : public CItemsWnd {
  public:
    CListBox(CWnd& parent, const char* name) : CItemsWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::listBox; }

    std::wstring GetText(int index) const { return itemText(index); } // empty when there is no such item

    std::function<void()> onDoubleClick;

    tv::ui::UserResult userDoubleClick(int index);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override { return choiceKey(key); }
};
