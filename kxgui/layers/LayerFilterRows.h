#pragma once

#include "kxgui/controls/InPlaceCtrlModel.h"
#include "kxgui/layers/LayerFilterExpression.h"

#include <functional>
#include <optional>
#include <vector>

class OdDbDatabase;

namespace kx::layers {

// The conditions of a property filter as the rows of an editable list: a column per property, and behind the
// last row an empty one that begins another.
class KXGUI_EXPORT LayerFilterRows : public CInPlaceCtrlModel {
  public:
    // Of the drawing the choices come from; null: there are none. It must outlive this.
    explicit LayerFilterRows(const OdDbDatabase* database) : m_database(database) { setRows({}); }

    void setRows(std::vector<FilterRow> rows);
    // Without the empty ones.
    std::vector<FilterRow> rows() const;
    bool isEmptyRow(int row) const;
    // The last one can't be removed. False when nothing was.
    bool removeRow(int row);
    // Adds the empty row that ends the list when the last one has come into use; true when it did.
    bool completeRows();

    static FilterProperty propertyOf(int column) { return static_cast<FilterProperty>(column); }
    static std::wstring title(FilterProperty property);

    // Asks for a colour; without an answer nothing was chosen.
    std::function<std::optional<OdCmColor>(const OdCmColor& present)> chooseColor;

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    tv::ui::ListCell cell(int row, int column) const override;
    std::wstring text(int row, int column) const override;
    Editor editor(int row, int column) const override;
    std::vector<tv::ui::ListItem> choices(int row, int column) const override;
    InPlaceAnswer setValue(int row, int column, const std::wstring& text) override;
    InPlaceAnswer runCommand(int row, int column) override;
    std::uintptr_t rowKey(int row) const override;
    int rowOfKey(std::uintptr_t key) const override;

  private:
    struct Row {
        FilterRow conditions;
        std::uintptr_t key;
    };
    bool valid(int row, int column) const {
        return row >= 0 && row < rowCount() && column >= 0 && column < kFilterProperties;
    }
    const OdDbDatabase* m_database;
    std::vector<Row> m_rows;
    std::uintptr_t m_nextKey = 1;
};

// "예" and "아니오".
KXGUI_EXPORT std::wstring filterStateText(bool state);

} // namespace kx::layers
