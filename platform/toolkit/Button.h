#pragma once

#include "platform/toolkit/Wnd.h"

#include <functional>

class KXPLATFORM_EXPORT CButton : public CWnd {
  public:
    // Buttons named IDOK and IDCANCEL end the dialog through OnOK and OnCancel unless onClick is set.
    CButton(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::button; }
    bool focusable() const override { return true; }

    std::function<void()> onClick;

    // Presses it as a person does: takes the focus, then the handler.
    tv::ui::UserResult userClick();
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;

  protected:
    virtual void pressed(); // after the focus came
};

// A large button of a task dialog: the command in the first line, its explanation under it.
class KXPLATFORM_EXPORT CCommandButton : public CButton {
  public:
    using CButton::CButton;
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::commandButton; }
    // The text's parts before and after its first line break.
    std::wstring command() const;
    std::wstring explanation() const;
};

class KXPLATFORM_EXPORT CCheckBox : public CButton {
  public:
    using CButton::CButton;
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::checkBox; }
    enum : int { unchecked = 0, checked = 1, mixed = 2 };
    void SetCheck(int state);
    int GetCheck() const { return m_check; }
    // A person's click goes unchecked, checked and, when allowed, mixed.
    void SetTriState(bool allowed) { m_triState = allowed; }
    bool triState() const { return m_triState; }

    tv::ui::UserResult userCheck(int state);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  protected:
    void pressed() override;

  private:
    int m_check = unchecked;
    bool m_triState = false;
};

// Of the radio buttons with the same parent and group number one at most is checked.
class KXPLATFORM_EXPORT CRadioButton : public CButton {
  public:
    CRadioButton(CWnd& parent, const char* name, int group = 0) : CButton(parent, name), m_group(group) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::radioButton; }
    int group() const { return m_group; }
    void SetCheck(bool check); // checking it clears the others of its group
    bool GetCheck() const { return m_check; }

    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    // The arrow keys move the check within the group, as a click.
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;
    std::vector<CRadioButton*> groupMembers() const;

  protected:
    void pressed() override;

  private:
    int m_group;
    bool m_check = false;
};
