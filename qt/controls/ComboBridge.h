#pragma once

#include "platform/toolkit/ComboBox.h"
#include "qt/controls/Bridge.h"

#include <QComboBox>

#include <functional>

namespace tv::qt {

// A combo box that asks before it opens its list.
class DropDownBox : public QComboBox {
    Q_OBJECT
  public:
    using QComboBox::QComboBox;
    std::function<bool()> mayOpen;
    void showPopup() override {
        if (!mayOpen || mayOpen()) QComboBox::showPopup();
    }

  protected:
    // Scrolling the window must not change the values the pointer passes over.
    void wheelEvent(QWheelEvent* event) override;
};

class ComboBridge : public Bridge {
  public:
    ComboBridge(CComboBox& combo, DropDownBox& widget);
    bool key(const ui::KeyEvent& key) override;

  protected:
    void show(ui::Change change) override;

  private:
    void showItems();
    CComboBox& m_combo;
    DropDownBox& m_box;
    std::vector<ui::Picture> m_pictures; // as shown
};

} // namespace tv::qt
