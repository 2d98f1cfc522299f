#pragma once

#include "qt/controls/Bridge.h"
#include "qt/controls/DropDownBox.h"

namespace tv::qt {

class ComboBridge : public Bridge {
  public:
    ComboBridge(CComboBox& combo, DropDownBox& widget);
    bool key(const ui::KeyEvent& key) override;

  protected:
    void show(ui::Change change) override;

  private:
    void showChosen();
    void showList();
    bool keyInList(QKeyEvent& event);
    CComboBox& m_combo;
    DropDownBox& m_box;
};

} // namespace tv::qt
