#pragma once

#include "platform/toolkit/ListCtrl.h"

#include <QStyledItemDelegate>

namespace tv::qt {

class ListRows;

// Paints the cells of a list as the control says: which rows are selected and how that looks, colours,
// pictures.
class ListCellPainter : public QStyledItemDelegate {
  public:
    ListCellPainter(const CListCtrl& list, const ListRows& rows) : m_list(list), m_rows(rows) {}
    // Whether selected rows are painted as such now.
    bool showsSelection(const QWidget& view) const;
    // Where the cell's check box is; empty when it has none.
    QRect checkBox(const QWidget& view, const QRect& cell, const QModelIndex& index) const;
    // Whether its text has no room there.
    bool isCutOff(const QWidget& view, const QRect& cell, const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

  private:
    void paintCell(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintFocus(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    QStyleOptionViewItem optionFor(const QWidget& view, const QRect& cell, const QModelIndex& index) const;
    const CListCtrl& m_list;
    const ListRows& m_rows;
};

} // namespace tv::qt
