#pragma once

#include "platform/toolkit/TreeCtrl.h"
#include "qt/controls/Bridge.h"
#include "qt/controls/TreeView.h"

#include <QHash>

#include <optional>

namespace tv::qt {

class TreeBridge : public Bridge, private TreeHand {
  public:
    TreeBridge(CTreeCtrl& tree, TreeView& widget);
    ~TreeBridge() override;
    bool key(const ui::KeyEvent& key) override;
    QPoint menuPlace() const override;

  protected:
    void show(ui::Change change) override;

  private:
    void contextMenu(int id, QPoint globalAt) override;
    void doubleClick(int id) override;
    void beginDrag(int id) override;
    bool takesDrop(int id) override;
    void drop(int id, bool copy) override;
    void hoverOpen(int id) override;
    void typed(const QString& text) override;

    void showItems();
    void forget(const QTreeWidgetItem& row);
    void showChildren(QTreeWidgetItem& shown, const ui::TreeItem& item);
    void showItem(QTreeWidgetItem& row, const ui::TreeItem& item);
    void showSelection();
    void showEditor();

    CTreeCtrl& m_tree;
    TreeView& m_view;
    QHash<int, QTreeWidgetItem*> m_rows;
    std::optional<QPoint> m_menuAt; // of the pointer, while it asks for a menu
    bool m_editing = false;         // the editor is the one the control asked for
};

} // namespace tv::qt
