#pragma once

#include "kxgui/controls/VORDCobxBase.h"

#include <string>
#include <string_view>

// The arrowheads with pictures; the last entry lets the user choose a block of the drawing, which then stands
// before it. Without a drawing the list is empty.
class KXGUI_EXPORT CCobxArrowBlock : public VORDCobxBase {
  public:
    using VORDCobxBase::VORDCobxBase;

    // Of this drawing instead of the current one.
    void SetDatabase(const OdDbDatabasePtr& database) { m_database = database; }
    // Fills the list at once.
    void SetComboBoxList() { RefillList(); }

    // The name of the selected arrowhead's block, "_Dot" or a user's; empty when nothing is selected.
    std::wstring GetSelectedItem() const { return m_block; }
    // By block name; of the built-in ones also without the underscore, and "" for the closed filled one.
    // Stands, shown as soon as the list is filled.
    void SelectItem(std::wstring_view block);

  protected:
    void RefillList() override;
    void OnSelChange() override;

  private:
    void showBlock();
    void chooseUserBlock();

    OdDbDatabasePtr m_database;
    std::wstring m_block;
    int m_userEntry = -1; // of a block that is none of the built-in ones
};
