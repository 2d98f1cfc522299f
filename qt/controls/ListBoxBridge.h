#pragma once

#include "platform/toolkit/ListBox.h"
#include "qt/controls/Bridge.h"

class QListWidget;

namespace tv::qt {

class ListBoxBridge : public Bridge {
  public:
    ListBoxBridge(CListBox& list, QListWidget& widget);

  protected:
    void show(ui::Change change) override;

  private:
    void showItems();
    CListBox& m_list;
    QListWidget& m_view;
    std::vector<ui::Picture> m_pictures; // as shown
};

} // namespace tv::qt
