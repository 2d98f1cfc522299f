#pragma once

#include "platform/text/Collation.h"
#include "platform/toolkit/ListModel.h"

namespace tv::ui {

// The rows of another model in an order of their own. Sorting reads each row's text once, compares as the
// current language does with digits as numbers and letter case aside, and keeps rows that compare equal in
// their order so far.
class KXPLATFORM_EXPORT SortedRows : public ListModel {
  public:
    explicit SortedRows(std::shared_ptr<ListModel> base,
                        text::CollationOptions options = {.digitsAsNumbers = true, .ignoreCase = true});

    int rowCount() const override { return static_cast<int>(m_order.size()); }
    ListCell cell(int row, int column) const override { return m_base->cell(identity(row), column); }
    std::wstring text(int row, int column) const override { return m_base->text(identity(row), column); }
    bool sortable(int column) const override { return column >= 0 && !isUnsortable(column); }
    void sort(int column, bool ascending) override;
    // The row of the base.
    int identity(int row) const override { return m_order[static_cast<std::size_t>(row)]; }
    int rowOf(int identity) const override;

    // Columns that hold nothing to sort by (pictures).
    void setUnsortable(std::vector<int> columns) { m_unsortable = std::move(columns); }
    // The base has other rows now, or other texts: they stand in its own order until they are sorted again. The
    // list that shows them is told by its owner.
    void baseChanged();

  private:
    bool isUnsortable(int column) const;
    std::shared_ptr<ListModel> m_base;
    text::CollationOptions m_options;
    std::vector<int> m_unsortable;
    std::vector<int> m_order;          // base rows from the top down
    mutable std::vector<int> m_places; // where each base row is; empty: not yet known
};

} // namespace tv::ui
