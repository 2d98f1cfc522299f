#pragma once

#include "platform/toolkit/Wnd.h"

#include <functional>

namespace tv::ui {

enum class TextAlign { left, right, center };

} // namespace tv::ui

class KXPLATFORM_EXPORT CEdit : public CWnd {
  public:
    CEdit(CWnd& parent, const char* name, bool multiLine = false) : CWnd(parent, name), m_multiLine(multiLine) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::edit; }
    bool focusable() const override { return true; }
    bool multiLine() const { return m_multiLine; }

    // The longest text a person can enter, in characters; 0: no limit.
    void SetLimitText(int characters);
    int limitText() const { return m_limit; }
    void SetReadOnly(bool readOnly);
    bool readOnly() const { return m_readOnly; }
    void SetAlign(tv::ui::TextAlign align);
    tv::ui::TextAlign align() const { return m_align; }
    // Marks the whole text, so that typing replaces it.
    void SelectAll();
    bool allSelected() const { return m_allSelected; }

    std::function<void()> onChange;    // after each edit by a person
    std::function<void()> onKillFocus; // the focus left by a person's action
    std::function<void()> onSetFocus;

    // The text as a person left it after an edit; longer than the limit: cut off.
    tv::ui::UserResult userType(std::wstring_view text);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void OnSetFocus() override;
    void OnKillFocus() override;

  private:
    bool m_multiLine;
    bool m_readOnly = false;
    bool m_allSelected = false;
    int m_limit = 0;
    tv::ui::TextAlign m_align = tv::ui::TextAlign::left;
};
