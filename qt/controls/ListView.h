#pragma once

#include <QTableView>

namespace tv::qt {

// What a person does to a list with mouse, wheel and input method, as its bridge takes it.
class ListHand {
  public:
    virtual ~ListHand() = default;
    virtual void press(const QModelIndex& index, QPoint at, Qt::KeyboardModifiers with) = 0;
    virtual void drag(const QModelIndex& index, QPoint at) = 0;
    virtual void release(const QModelIndex& index) = 0;
    virtual void doubleClick(const QModelIndex& index, QPoint at) = 0;
    virtual void contextMenu(const QModelIndex& index, QPoint globalAt) = 0;
    virtual void typed(const QString& text) = 0;
    virtual QString toolTipFor(const QModelIndex& index) = 0;
    // The room for cells or the ranges of the scroll bars are others now.
    virtual void geometryChanged() = 0;
};

// A table that leaves selecting, editing and keys to the control it shows.
class ListView : public QTableView {
  public:
    explicit ListView(QWidget* parent = nullptr) : QTableView(parent) {}
    void serve(ListHand* hand) { m_hand = hand; }
    void updateGeometries() override;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    ListHand* m_hand = nullptr;
};

} // namespace tv::qt
