#pragma once

#include "kxgui/controls/VORDCobxBase.h"

// Decimal separators: full stop, comma, space. Item data is the character, as DIMDSEP has it.
class KXGUI_EXPORT CCobxDSep : public VORDCobxBase {
  public:
    using VORDCobxBase::VORDCobxBase;

    void SetComboBoxList() { RefillList(); }
    // A full stop when nothing is selected.
    wchar_t GetSeparator() const {
        return GetCurSel() < 0 ? L'.' : static_cast<wchar_t>(GetItemData(GetCurSel()));
    }
    // Selects nothing for any other character.
    void SelectSeparator(wchar_t separator);

  protected:
    void RefillList() override;

  private:
    wchar_t m_separator = 0;
};
