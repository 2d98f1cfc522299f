#pragma once

#include "platform/toolkit/Button.h"
#include "qt/controls/Bridge.h"

class QAbstractButton;

namespace tv::qt {

// All kinds of buttons: a native click is the control's click, and what is checked is shown as the control
// says.
class ButtonBridge : public Bridge {
  public:
    ButtonBridge(CButton& button, QAbstractButton& widget);
    bool key(const ui::KeyEvent& key) override;

  protected:
    void show(ui::Change change) override;

  private:
    void showCheck();
    QAbstractButton& m_button;
};

} // namespace tv::qt
