#pragma once

#include "platform/toolkit/ListModel.h"

namespace tv::ui {

// The columns of a list: what they are, in which order they stand and how wide they are. A column keeps its
// number wherever it stands.
class KXPLATFORM_EXPORT ListColumns {
  public:
    void assign(std::vector<ListColumn> columns);
    int insert(int at, ListColumn column); // its number; columns from `at` on count one more
    bool erase(int column);

    int count() const { return static_cast<int>(m_columns.size()); }
    bool valid(int column) const { return column >= 0 && column < count(); }
    const std::vector<ListColumn>& all() const { return m_columns; }
    const ListColumn& at(int column) const { return m_columns[static_cast<std::size_t>(column)]; }
    ListColumn& edit(int column) { return m_columns[static_cast<std::size_t>(column)]; }

    // All columns from left to right, hidden ones included.
    const std::vector<int>& order() const { return m_order; }
    bool setOrder(std::vector<int> order); // false, and nothing done, unless each column is in it once
    void move(int column, int place);      // to that place from the left
    int placeOf(int column) const;
    // Those on screen, from left to right.
    std::vector<int> visible() const;
    // The visible column `by` places further to the right; the last one on the way when there are not so many.
    int neighbour(int column, int by) const;

    // The least width the face needs for a column's title; 0 when nobody knows.
    void setTitleWidth(int column, int width);
    // Whether the column may be narrower than that.
    void setNarrow(int column, bool narrow);
    // As wide as on screen in a list `room` pixels wide: the last column takes what is left over. Columns too
    // narrow for a title are taken at their word.
    int shownWidth(int column, int room) const;
    int left(int column) const; // the widths of the columns before it
    int total(int room) const;
    int columnAt(int x, int room) const; // -1 beside all columns

  private:
    int ownWidth(int column) const;
    std::vector<ListColumn> m_columns;
    std::vector<int> m_order;
    std::vector<int> m_titleWidths;
    std::vector<bool> m_narrow;
};

constexpr int narrowColumn = 16; // less than any title needs

} // namespace tv::ui
