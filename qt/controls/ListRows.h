#pragma once

#include "platform/toolkit/ListCtrl.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <functional>

namespace tv::qt {

// The rows of a list control as Qt's views ask for them: cell by cell, only those in view.
class ListRows : public QAbstractTableModel {
  public:
    explicit ListRows(CListCtrl& list) : m_list(list) {}

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    const ui::ListCell& cell(const QModelIndex& index) const;
    // The control's model or columns are others than before.
    void reset();
    // Rows [first, last] have new contents; -1: to the last.
    void rowsChanged(int first, int last);

  private:
    CListCtrl& m_list;
    int m_rows = 0, m_columns = 0; // as the views know them
    // A view asks for several roles of a cell one after the other.
    mutable int m_row = -1, m_column = -1;
    mutable ui::ListCell m_cell;
};

} // namespace tv::qt
