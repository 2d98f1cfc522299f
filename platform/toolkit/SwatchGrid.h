#pragma once

#include "platform/toolkit/ListItems.h"
#include "platform/toolkit/Wnd.h"

#include <functional>

namespace tv::ui {

struct ColorCell {
    std::uint32_t rgb = 0;   // 0xRRGGBB
    std::wstring name;       // what a screen reader and the tooltip say
    std::uintptr_t data = 0;
};

} // namespace tv::ui

// A table of colours to choose one from, filled row by row.
class KXPLATFORM_EXPORT CSwatchGrid : public CWnd {
  public:
    CSwatchGrid(CWnd& parent, const char* name, int columns) : CWnd(parent, name), m_columns(columns) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::swatchGrid; }
    bool focusable() const override { return true; }

    void SetCells(std::vector<tv::ui::ColorCell> cells); // clears the selection
    const std::vector<tv::ui::ColorCell>& cells() const { return m_cells; }
    int columns() const { return m_columns; }
    int GetCurSel() const { return m_curSel; } // -1: none
    void SetCurSel(int index);
    int FindData(std::uintptr_t data) const;

    std::function<void()> onSelChange;
    std::function<void()> onDoubleClick;
    std::function<void(int index)> onHover; // -1: the pointer left

    tv::ui::UserResult userChoose(int index);
    tv::ui::UserResult userDoubleClick(int index);
    tv::ui::UserResult userHover(int index);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  private:
    std::vector<tv::ui::ColorCell> m_cells;
    int m_columns;
    int m_curSel = -1;
};
