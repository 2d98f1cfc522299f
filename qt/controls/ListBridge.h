#pragma once

#include "qt/controls/Bridge.h"
#include "qt/controls/ListCellPainter.h"
#include "qt/controls/ListRows.h"
#include "qt/controls/ListView.h"

#include <QTimer>

#include <optional>

namespace tv::qt {

class ListBridge : public Bridge, private ListHand {
  public:
    ListBridge(CListCtrl& list, ListView& widget);
    ~ListBridge() override;
    bool key(const ui::KeyEvent& key) override;
    Bridge* inner() const override { return m_editor.get(); }
    void placeInner() override;
    QPoint menuPlace() const override;

  protected:
    void show(ui::Change change) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void press(const QModelIndex& index, QPoint at, Qt::KeyboardModifiers with) override;
    void drag(const QModelIndex& index, QPoint at) override;
    void release(const QModelIndex& index) override;
    void doubleClick(const QModelIndex& index, QPoint at) override;
    void contextMenu(const QModelIndex& index, QPoint globalAt) override;
    void typed(const QString& text) override;
    QString toolTipFor(const QModelIndex& index) override;
    void geometryChanged() override;

    bool onCheckBox(const QModelIndex& index, QPoint at) const;
    bool toggleAt(const QModelIndex& index, QPoint at);
    void showRows();
    void showColumns();
    void showScroll();
    void showSelection();
    void showEditor();
    void dropEditor();
    void dragOut();

    CListCtrl& m_list;
    ListView& m_view;
    ListRows m_rows;
    ListCellPainter m_painter;
    std::vector<std::wstring> m_titles; // of the columns as shown
    std::unique_ptr<Bridge> m_editor;
    int m_pressedRow = -1, m_pressedColumn = -1;
    bool m_dragged = false;
    bool m_mayDrag = false; // a selected row is pressed, which may be the beginning of a drag
    QPoint m_pressedAt;
    std::optional<QPoint> m_menuAt; // of the pointer, while it asks for a menu
    bool m_again = false;           // the cell that is pressed was the selected one
    QTimer m_openSoon;              // the editor of a cell clicked again, unless it is a double click
    bool m_placing = false;
};

} // namespace tv::qt
