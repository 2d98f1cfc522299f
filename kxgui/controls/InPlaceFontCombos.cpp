#include "kxgui/controls/InPlaceFontCombos.h"

void CInPlaceFontFiller::FillCombo(CComboBox& combo, int item, int column) {
    auto* fonts = dynamic_cast<CInPlaceFontComboBox*>(&combo);
    if (fonts && m_font) fonts->SelectFont(m_font(item, column));
}

void CInPlaceFontStyleFiller::FillCombo(CComboBox& combo, int item, int column) {
    auto* styles = dynamic_cast<CInPlaceFontStyleComboBox*>(&combo);
    if (!styles || !m_family) return;
    styles->SetFont(m_family(item, column));
    if (m_style) styles->SelectString(-1, m_style(item, column).c_str(), true);
}
