#pragma once

#include <QAbstractTableModel>
#include <QApplication>
#include <QTableView>

namespace bench {

// The least a table can be asked for: the number of the row in every cell.
struct BareTable : QAbstractTableModel {
    BareTable(int rowCount, int columnCount) : rows(rowCount), columns(columnCount) {}
    int rowCount(const QModelIndex& = {}) const override { return rows; }
    int columnCount(const QModelIndex& = {}) const override { return columns; }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? QString::number(index.row()) : QVariant();
    }
    int rows, columns;
};

// Fills the view with so many rows and paints it.
inline void showBareTable(QTableView& view, int rows, int columns) {
    BareTable model(rows, columns);
    view.setModel(&model);
    QApplication::processEvents();
    view.grab();
}

} // namespace bench
