#pragma once

#include "kxgui/controls/InPlaceCtrlModel.h"
#include "kxgui/sysvars/SysVarRows.h"

#include <functional>

namespace kx::sysvar {

// The shown variables as the rows of an editable list. Rows are made when they are asked for.
class KXGUI_EXPORT SysVarModel : public CInPlaceCtrlModel {
  public:
    // `edits` must outlive it.
    explicit SysVarModel(SysVarEdits& edits) : m_edits(edits) { refresh({}); }

    // Shows what `view` asks for now.
    void refresh(const SysVarView& view);
    const SysVarView& view() const { return m_view; }
    int entryOf(int row) const; // its index in the edits, -1 when there is no such row

    // Asks for a colour; without an answer nothing was chosen. `indexOnly`: the variable holds no true colours.
    std::function<std::optional<OdCmColor>(const OdCmColor& present, bool indexOnly)> chooseColor;

    int rowCount() const override { return static_cast<int>(m_rows.size()); }
    tv::ui::ListCell cell(int row, int column) const override;
    std::wstring text(int row, int column) const override;
    bool sortable(int) const override { return true; }
    void sort(int column, bool ascending) override;
    int identity(int row) const override;
    int rowOf(int identity) const override;

    Editor editor(int row, int column) const override;
    std::vector<tv::ui::ListItem> choices(int row, int column) const override;
    InPlaceAnswer setValue(int row, int column, const std::wstring& text) override;
    InPlaceAnswer runCommand(int row, int column) override;
    std::uintptr_t rowKey(int row) const override { return static_cast<std::uintptr_t>(entryOf(row)); }
    int rowOfKey(std::uintptr_t key) const override;

  private:
    const SysVarEntry& entry(int row) const;
    bool indexOnly(const SysVarEntry& entry) const;
    SysVarEdits& m_edits;
    SysVarView m_view;
    std::vector<int> m_rows;       // entries in the order shown
    std::vector<int> m_natural;    // the same in the order of the entries
    std::vector<int> m_rowOfEntry; // -1: not shown
};

} // namespace kx::sysvar
