#include "kxgui/controls/FontCombos.h"

#include "platform/host/TavoFonts.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/text/Collation.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>

namespace {

constexpr std::uintptr_t familyItem = 1, shapeItem = 2;

const TavoFonts* hostFonts() {
    TavoInterfaces* host = getTavoInterfaces();
    return host ? host->fonts() : nullptr;
}

std::vector<std::wstring> sorted(const std::vector<OdString>& names) {
    std::vector<std::wstring> out;
    for (const OdString& name : names)
        out.push_back(name.wstr());
    std::stable_sort(out.begin(), out.end(), tv::text::Collator({.digitsAsNumbers = true, .ignoreCase = true}));
    return out;
}

// Bold and italic as item data.
std::uintptr_t dataOf(bool bold, bool italic) { return (bold ? 1U : 0U) | (italic ? 2U : 0U); }

// The names fonts give their styles of usual weight and width.
bool isPlain(std::wstring_view style) {
    constexpr std::wstring_view plain[] = {L"Regular",      L"Book",        L"Roman",        L"Normal",
                                           L"Bold",         L"Italic",      L"Oblique",      L"Bold Italic",
                                           L"Bold Oblique", L"Book Italic", L"Book Oblique", L"Regular Italic"};
    return std::any_of(std::begin(plain), std::end(plain),
                       [&](std::wstring_view name) { return tv::text::equalNoCase(name, style); });
}

} // namespace

void CCobxFont::RefillList() {
    const TavoFonts* fonts = hostFonts();
    std::vector<tv::ui::ListItem> items;
    if (fonts) {
        for (std::wstring& name : sorted(fonts->families())) {
            auto picture = tv::ui::fontPicture(name, false, false);
            items.push_back({std::move(name), familyItem, std::move(picture)});
        }
        if (m_shapeFonts)
            for (std::wstring& name : sorted(fonts->shapeFonts()))
                items.push_back({std::move(name), shapeItem, nullptr});
    }
    SetItems(std::move(items));
    showFont();
}

void CCobxFont::showFont() {
    SetCurSel(m_font.empty() ? -1 : FindStringExact(-1, m_font));
    if (GetCurSel() < 0) SetWindowText(m_font);
}

std::wstring CCobxFont::GetFont() const { return m_font; }

bool CCobxFont::IsShapeFont() const {
    return GetCurSel() >= 0 ? GetItemData(GetCurSel()) == shapeItem
                            : tv::text::foldCase(m_font).ends_with(L".shx");
}

void CCobxFont::SelectFont(std::wstring_view font) {
    m_font = font;
    showFont();
}

void CCobxFont::OnSelChange() {
    m_font = GetLBText(GetCurSel());
    VORDCobxBase::OnSelChange();
}

void CCobxFontStyle::SetFont(std::wstring_view family) {
    m_family = family;
    RefillList();
}

void CCobxFontStyle::RefillList() {
    const TavoFonts* fonts = hostFonts();
    std::vector<tv::ui::ListItem> items;
    if (fonts && !m_family.empty())
        for (const TavoFonts::Style& style : fonts->styles(OdString(m_family)))
            items.push_back({style.name.wstr(), dataOf(style.bold, style.italic),
                             tv::ui::fontPicture(m_family, style.bold, style.italic)});
    const std::wstring kept = GetStyleName();
    SetItems(std::move(items));
    SelectStyle(m_bold, m_italic);
    const int same = kept.empty() ? -1 : FindStringExact(-1, kept);
    if (same >= 0 && GetItemData(same) == dataOf(m_bold, m_italic)) SetCurSel(same);
}

bool CCobxFontStyle::IsBold() const { return GetCurSel() < 0 ? m_bold : (GetItemData(GetCurSel()) & 1) != 0; }

bool CCobxFontStyle::IsItalic() const {
    return GetCurSel() < 0 ? m_italic : (GetItemData(GetCurSel()) & 2) != 0;
}

void CCobxFontStyle::SelectStyle(bool bold, bool italic) {
    m_bold = bold;
    m_italic = italic;
    const auto isSo = [&](int i) { return GetItemData(i) == dataOf(bold, italic); };
    int found = FindItemData(dataOf(bold, italic));
    for (int i = GetCount() - 1; i >= 0; --i)
        if (isSo(i) && isPlain(items().at(i).text)) found = i;
    SetCurSel(found >= 0 || GetCount() == 0 ? found : 0);
}

void CCobxFontStyle::OnSelChange() {
    const std::uintptr_t data = GetItemData(GetCurSel());
    m_bold = (data & 1) != 0;
    m_italic = (data & 2) != 0;
    VORDCobxBase::OnSelChange();
}
