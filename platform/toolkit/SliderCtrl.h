#pragma once

#include "platform/toolkit/Wnd.h"

#include <functional>

// A whole number chosen on a scale.
class KXPLATFORM_EXPORT CSliderCtrl : public CWnd {
  public:
    CSliderCtrl(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::slider; }
    bool focusable() const override { return true; }

    void SetRange(int minimum, int maximum);
    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }
    int GetPos() const { return m_pos; }
    void SetPos(int pos); // brought into the range

    std::function<void()> onChange;

    tv::ui::UserResult userSet(int pos); // out of range: refused
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  private:
    int m_minimum = 0, m_maximum = 100, m_pos = 0;
};
