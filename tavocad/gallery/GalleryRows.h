#pragma once

#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDb.h"
#include "platform/toolkit/ListModel.h"

#include <array>
#include <map>
#include <string>
#include <vector>

// The rows of the gallery's list: made from their number when they are shown, however many there are. Only rows
// somebody changed are kept.
class GalleryRows : public tv::ui::ListModel {
  public:
    enum Column { kName, kColor, kWeight, kState, kFont, kFontStyle, kLength, kRemark, kColumns };

    struct Font {
        std::wstring name, style;
    };
    // The rows name these fonts in turn.
    GalleryRows(int count, std::vector<Font> fonts) : m_count(count), m_fonts(std::move(fonts)) {}

    int rowCount() const override { return m_count; }
    tv::ui::ListCell cell(int row, int column) const override;
    std::wstring text(int row, int column) const override;

    // Takes what was entered in a cell. False, and nothing changed, when the column can't hold it.
    bool set(int row, int column, const std::wstring& text);
    void check(int row, bool checked);

    // What can be chosen in a column, with the texts its cells show.
    static std::vector<tv::ui::ListItem> colors();
    static std::vector<tv::ui::ListItem> weights();
    // On and off.
    static std::array<std::wstring, 2> states();

  private:
    struct Row {
        bool checked = false, on = true;
        std::wstring name, remark;
        Font font;
        int color = 1; // index
        OdDb::LineWeight weight = OdDb::kLnWt025;
        double length = 0.0;
    };
    Row row(int number) const;

    int m_count;
    std::vector<Font> m_fonts;
    std::map<int, Row> m_changed;
};
