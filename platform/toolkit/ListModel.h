#pragma once

#include "platform/toolkit/ListItems.h"

#include <memory>

namespace tv::ui {

struct ListCell {
    std::wstring text;
    Picture picture = {};  // before the text
    int checked = -1;      // -1: no check box, else 0, 1
    bool editable = false; // F2 or a second click opens an editor
    bool bold = false;
    std::optional<std::uint32_t> textColor = {};  // 0xRRGGBB; without one the theme's
    std::optional<std::uint32_t> background = {}; // of the cell, when its row isn't selected
    // Only the picture is painted; the text is what it says: to a screen reader, when it is copied, sorted,
    // searched, or shown as the hint.
    bool pictureOnly = false;
    std::wstring hint =
        {}; // shown while the pointer rests on the cell; empty: the text, when it isn't in full view
};

struct ListColumn {
    std::wstring title;
    int width = 100; // logical pixels
    enum class Align { left, right, center } align = Align::left;
    bool visible = true;
    std::wstring hint = {}; // shown while the pointer rests on the title
};

// The rows of a list. A face asks for the rows in view only, so a list of 1,000,000 rows costs what it shows.
class KXPLATFORM_EXPORT ListModel {
  public:
    virtual ~ListModel() = default;
    virtual int rowCount() const = 0;
    virtual ListCell cell(int row, int column) const = 0;
    // The cell's text alone, for those who go through many rows.
    virtual std::wstring text(int row, int column) const { return cell(row, column).text; }

    // --- for models that can sort themselves ---

    virtual bool sortable(int /*column*/) const { return false; }
    virtual void sort(int /*column*/, bool /*ascending*/) {}
    // What a row stands for whatever the order is, a number from 0 to rowCount() - 1, and the row it is at now.
    virtual int identity(int row) const { return row; }
    virtual int rowOf(int identity) const { return identity; }
};

// A model for short lists: texts row by row.
class KXPLATFORM_EXPORT TextRows : public ListModel {
  public:
    std::vector<std::vector<ListCell>> rows;
    int rowCount() const override { return static_cast<int>(rows.size()); }
    ListCell cell(int row, int column) const override;
};

} // namespace tv::ui
