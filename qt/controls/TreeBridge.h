#pragma once

#include "platform/toolkit/TreeCtrl.h"
#include "qt/controls/Bridge.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace tv::qt {

class TreeBridge : public Bridge {
  public:
    TreeBridge(CTreeCtrl& tree, QTreeWidget& widget);

  protected:
    void show(ui::Change change) override;

  private:
    void showChildren(QTreeWidgetItem& shown, const ui::TreeItem& item);
    void showSelection();
    QTreeWidgetItem* find(int id) const;
    CTreeCtrl& m_tree;
    QTreeWidget& m_view;
};

} // namespace tv::qt
