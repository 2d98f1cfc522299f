#pragma once

#include <QTimer>
#include <QTreeWidget>

namespace tv::qt {

// What a person does to a tree with the mouse, as its bridge takes it. Items are the control's ids, 0: none.
class TreeHand {
  public:
    virtual ~TreeHand() = default;
    virtual void contextMenu(int id, QPoint globalAt) = 0;
    virtual void doubleClick(int id) = 0;
    virtual void beginDrag(int id) = 0;
    virtual bool takesDrop(int id) = 0;
    virtual void drop(int id, bool copy) = 0;
    virtual void hoverOpen(int id) = 0;
    virtual void typed(const QString& text) = 0;
};

// A tree that leaves keys, menus, double clicks and what is dropped on it to the control it shows.
class TreeView : public QTreeWidget {
  public:
    explicit TreeView(QWidget* parent = nullptr);
    void serve(TreeHand* hand) { m_hand = hand; }
    static int idOf(const QTreeWidgetItem* item) { return item ? item->data(0, Qt::UserRole).toInt() : 0; }
    bool editing() const { return state() == EditingState; }
    void cancelEditing();

  protected:
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }
    void startDrag(Qt::DropActions actions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;

  private:
    void setTarget(int id);
    TreeHand* m_hand = nullptr;
    int m_target = 0;  // shown as the one that would be dropped on
    QTimer m_openSoon; // an item that is rested on while something is dragged
    int m_restedOn = 0;
};

} // namespace tv::qt
