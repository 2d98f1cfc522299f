#include "kxgui/controls/DSepCombo.h"

#include "platform/text/ResourceString.h"

void CCobxDSep::RefillList() {
    const wchar_t kept = GetCurSel() < 0 ? m_separator : GetSeparator();
    SetItems(std::vector<tv::ui::ListItem>{
        {VORD_ResourceString("IDS_ZEL_MANAGED_UI_DIMSTYLEDLGPART_2", L"'.'(마침표)").c_str(), L'.', nullptr},
        {VORD_ResourceString("IDS_ZEL_MANAGED_UI_DIMSTYLEDLGPART_1", L"','(쉼표)").c_str(), L',', nullptr},
        {VORD_ResourceString("IDS_ZEL_MANAGED_UI_DIMSTYLEDLGPART_0", L"' '(공백)").c_str(), L' ', nullptr}});
    SelectSeparator(kept);
}

void CCobxDSep::SelectSeparator(wchar_t separator) {
    m_separator = separator;
    SetCurSel(separator ? FindItemData(static_cast<std::uintptr_t>(separator)) : -1);
}
