#pragma once

#include "kxgui/controls/FontCombos.h"
#include "kxgui/controls/InPlaceDescriptors.h"

#include <functional>

// The fonts of this machine over a cell; filled when it is made.
class KXGUI_EXPORT CInPlaceFontComboBox : public CCobxFont {
  public:
    CInPlaceFontComboBox(CWnd& parent, const char* name) : CCobxFont(parent, name) { SetComboBoxList(); }
};

// The styles of a font over a cell; which font, its column's CInPlaceFontStyleFiller says.
class KXGUI_EXPORT CInPlaceFontStyleComboBox : public CCobxFontStyle {
  public:
    using CCobxFontStyle::CCobxFontStyle;
};

// Selects the font a cell holds, also one that isn't on this machine.
class KXGUI_EXPORT CInPlaceFontFiller : public ICtrlFiller {
  public:
    using Text = std::function<std::wstring(int item, int column)>;
    explicit CInPlaceFontFiller(Text font) : m_font(std::move(font)) {}
    void FillCombo(CComboBox& combo, int item, int column) override;

  private:
    Text m_font;
};

// Lists the styles of a cell's font and selects its style, by the font's own name for it.
class KXGUI_EXPORT CInPlaceFontStyleFiller : public ICtrlFiller {
  public:
    using Text = std::function<std::wstring(int item, int column)>;
    CInPlaceFontStyleFiller(Text family, Text style) : m_family(std::move(family)), m_style(std::move(style)) {}
    void FillCombo(CComboBox& combo, int item, int column) override;

  private:
    Text m_family, m_style;
};
