#include "kxgui/frame/ColorNames.h"

#include "kxgui/frame/ColorModel.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

namespace kx::frame {
namespace {

constexpr const wchar_t* kEnglish[] = {L"Red", L"Yellow", L"Green", L"Cyan", L"Blue", L"Magenta", L"White"};
constexpr int kNamed = 7;

std::wstring standardName(int index) {
    switch (index) {
    case 1:
        return VORD_ResourceString("IDC_TBMNU_509", L"Red").c_str();
    case 2:
        return VORD_ResourceString("IDC_TBMNU_507", L"Yellow").c_str();
    case 3:
        return VORD_ResourceString("IDC_TBMNU_505", L"Green").c_str();
    case 4:
        return VORD_ResourceString("IDC_TBMNU_503", L"Cyan").c_str();
    case 5:
        return VORD_ResourceString("IDC_TBMNU_501", L"Blue").c_str();
    case 6:
        return VORD_ResourceString("IDC_TBMNU_511", L"Magenta").c_str();
    default:
        return VORD_ResourceString("IDC_TBMNU_499", L"White").c_str();
    }
}

std::wstring byLayerText() { return VORD_ResourceString("IDC_TBMNU_513", L"ByLayer").c_str(); }
std::wstring byBlockText() { return VORD_ResourceString("IDC_TBMNU_515", L"ByBlock").c_str(); }

} // namespace

std::wstring colorText(const OdCmColor& color) {
    if (color.isByLayer()) return byLayerText();
    if (color.isByBlock()) return byBlockText();
    if (color.isByColor()) return hexText(color.rgb());
    const int index = color.colorIndex();
    return index <= kNamed ? standardName(index) : tv::text::printInt(index);
}

std::optional<OdCmColor> indexedColorOf(std::wstring_view text, bool special) {
    const auto first = text.find_first_not_of(L" \t"), last = text.find_last_not_of(L" \t");
    if (first == std::wstring_view::npos) return std::nullopt;
    text = text.substr(first, last - first + 1);
    const auto is = [text](std::wstring_view name) { return tv::text::equalNoCase(text, name); };

    std::optional<std::int64_t> index = tv::text::parseInt(text);
    constexpr std::wstring_view numbered = L"Color_";
    if (tv::text::equalNoCase(text.substr(0, numbered.size()), numbered))
        index = tv::text::parseInt(text.substr(numbered.size()));
    if (is(byLayerText()) || is(L"ByLayer")) index = OdCmColor::kACIbyLayer;
    if (is(byBlockText()) || is(L"ByBlock")) index = OdCmColor::kACIbyBlock;
    for (int i = 1; i <= kNamed; ++i)
        if (is(standardName(i)) || is(kEnglish[i - 1])) index = i;
    if (!index || *index < 0 || *index > 256) return std::nullopt;
    const bool isSpecial = *index == OdCmColor::kACIbyBlock || *index == OdCmColor::kACIbyLayer;
    if (isSpecial && !special) return std::nullopt;
    return OdCmColor::byIndex(static_cast<int>(*index));
}

std::uint32_t swatchRgb(tv::dwg::Rgb color) {
    return std::uint32_t{color.red} << 16 | std::uint32_t{color.green} << 8 | color.blue;
}

} // namespace kx::frame
