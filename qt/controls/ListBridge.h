#pragma once

#include "qt/controls/Bridge.h"
#include "qt/controls/ListRows.h"

#include <QStyledItemDelegate>

#include <functional>

class QTableView;

namespace tv::qt {

// The editor of a cell. It closes when the entered text was accepted or given up, and stays open on a refusal.
class CellEditor : public QStyledItemDelegate {
  public:
    // Takes the text; false refuses it.
    std::function<bool(const QModelIndex& index, const std::wstring& text)> accept;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

  protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

  private:
    bool commit(QWidget& editor, const QModelIndex& index) const;
};

class ListBridge : public Bridge {
  public:
    ListBridge(CListCtrl& list, QTableView& widget);

  protected:
    void show(ui::Change change) override;

  private:
    void showRows();
    void showColumns();
    void showSelection();
    void selectionByUser();
    CListCtrl& m_list;
    QTableView& m_view;
    ListRows m_rows;
    CellEditor m_editor;
    std::vector<std::wstring> m_titles; // of the columns as shown
    std::vector<int> m_widths;          // as the dialog asked for them
    int m_ensured = -1;
};

} // namespace tv::qt
