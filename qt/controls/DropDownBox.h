#pragma once

#include "platform/toolkit/ComboBox.h"
#include "qt/Export.h"

#include <QAbstractItemView>
#include <QAbstractListModel>
#include <QComboBox>
#include <QFrame>

#include <functional>
#include <string>

class QKeyEvent;

namespace tv::qt {

// The items of a combo box as Qt's views ask for them: those in view only. Knows how much room they need
// without laying any of them out.
class KXGUIQT_EXPORT ItemRows : public QAbstractListModel {
  public:
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_count; }
    QVariant data(const QModelIndex& index, int role) const override;

    // Shows these from now on; the list belongs to the control.
    void reset(const ui::ListItems& items);
    // Of the widest text, estimated by its length.
    int textWidth(const QFontMetrics& metrics) const;
    QSize pictureSize() const { return m_pictureSize; }

  private:
    const ui::ListItems* m_items = nullptr;
    int m_count = 0;
    std::vector<QString> m_longest; // texts one of which is the widest
    QSize m_pictureSize;
};

// Rows of one height, of which only those in view are ever asked for.
class KXGUIQT_EXPORT UniformRowsView : public QAbstractItemView {
  public:
    explicit UniformRowsView(QWidget* parent) : QAbstractItemView(parent) {}
    void setRowHeight(int height);
    int rowHeight() const { return m_rowHeight; }

    QRect visualRect(const QModelIndex& index) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint& point) const override;

  protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex&) const override { return false; }
    void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    int rows() const { return model() ? model()->rowCount() : 0; }
    int m_rowHeight = 20;
};

// The open list of a combo box.
class KXGUIQT_EXPORT DropDownList : public QFrame {
  public:
    DropDownList(QComboBox& box, ItemRows& rows);

    std::function<void(int row)> hovered, clicked;
    std::function<bool(QKeyEvent&)> keyPressed; // true swallows it
    std::function<void()> closed;

    // At least that wide.
    void open(int leastWidth = 0);
    void highlight(int row);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void place(int leastWidth);
    QComboBox& m_box;
    ItemRows& m_rows;
    UniformRowsView m_view;
    QPoint m_pointer; // where the pointer was when it last chose a row
};

// A combo box whose list opens and closes as its control says.
class KXGUIQT_EXPORT DropDownBox : public QComboBox {
    Q_OBJECT
  public:
    explicit DropDownBox(QWidget* parent = nullptr);

    std::function<void()> wantsOpen, wantsClose;
    ItemRows& rows() { return m_rows; }
    DropDownList& list() { return m_list; }
    void itemsChanged();

    void showPopup() override;
    void hidePopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    // Scrolling the window must not change the values the pointer passes over.
    void wheelEvent(QWheelEvent* event) override;

  private:
    QSize sizeFor(int textWidth) const;
    ItemRows m_rows;
    DropDownList m_list;
};

} // namespace tv::qt
