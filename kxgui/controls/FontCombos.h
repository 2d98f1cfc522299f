#pragma once

#include "kxgui/controls/VORDCobxBase.h"

#include <string>
#include <string_view>

// The fonts a text style can have: the machine's families with a sample each, then the files of stroked fonts
// on the host's search path, both in the order readers expect. The same without a drawing; empty when the host
// offers no fonts.
class KXGUI_EXPORT CCobxFont : public VORDCobxBase {
  public:
    using VORDCobxBase::VORDCobxBase;

    void SetComboBoxList() { RefillList(); }
    void SetShapeFonts(bool offered) { m_shapeFonts = offered; }
    // The family, or the file's name; empty when nothing is selected.
    std::wstring GetFont() const;
    bool IsShapeFont() const;
    // One that isn't on this machine shows as its name. Letter case aside.
    void SelectFont(std::wstring_view font);

  protected:
    void RefillList() override;
    void OnSelChange() override;

  private:
    void showFont();
    bool m_shapeFonts = true;
    std::wstring m_font;
};

// The styles the family given really has.
class KXGUI_EXPORT CCobxFontStyle : public VORDCobxBase {
  public:
    using VORDCobxBase::VORDCobxBase;

    // Fills the list at once and keeps bold and italic where the family has them.
    void SetFont(std::wstring_view family);
    void SetComboBoxList() { RefillList(); }
    std::wstring GetStyleName() const { return GetLBText(GetCurSel()); }
    // Of the selected style; what was asked for when the family has no styles.
    bool IsBold() const;
    bool IsItalic() const;
    // The first style that is so, a plain one ("Regular") before others ("Light"); the first one at all when
    // the family has none.
    void SelectStyle(bool bold, bool italic);

  protected:
    void RefillList() override;
    void OnSelChange() override;

  private:
    std::wstring m_family;
    bool m_bold = false, m_italic = false;
};
