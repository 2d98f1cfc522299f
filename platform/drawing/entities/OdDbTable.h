#pragma once

#include "platform/Export.h"
#include "platform/drawing/entities/OdDbBlockReference.h"

#include <string_view>
#include <vector>

// A table with texts and blocks in its cells (ACAD_TABLE). Also an insert: of the anonymous block that shows
// it.
class KXPLATFORM_EXPORT OdDbTable : public OdDbBlockReference {
  public:
    using OdDbBlockReference::OdDbBlockReference;

    int numRows() const;
    int numColumns() const;
    std::vector<double> rowHeights() const;
    std::vector<double> columnWidths() const;
    // Null when the file names none or lacks it.
    OdDbObjectId tableStyleId() const;

    struct Cell {
        OdString text; // with formatting codes, as shown; empty for a block
        bool isBlock = false;
        bool isMerged = false; // hidden under another cell
    };
    // Row by row; as many as the record holds, which in a damaged one may be fewer than rows times columns.
    std::vector<Cell> cells() const;
    // Empty outside the table.
    OdString textString(int row, int column) const;
    // Changes the text wherever the file keeps it: in the table, in the contents newer versions keep beside it,
    // and in the block that shows it where its text can be told from the others. eOutOfRange outside the table,
    // eWrongType for a cell with a block, eNotHandled for one those contents have no text for yet.
    Tavo::ErrorStatus setTextString(int row, int column, std::wstring_view text);

  private:
    OdDbObjectId linkedContent() const;
    void setShownText(std::size_t cell, std::wstring_view text);
};
using OdDbTablePtr = std::shared_ptr<OdDbTable>;
