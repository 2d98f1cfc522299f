#include "tavocad/gallery/GalleryTexts.h"

#include "kxgui/frame/ColorNames.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

namespace gallery {

std::wstring shortened(const std::wstring& text, std::size_t room) {
    return text.size() <= room ? text : text.substr(0, room - 1) + L'…';
}

std::wstring nothingChosen() { return VORD_ResourceString("IDS_TAVO_GALLERY_NOTHING", L"(선택 없음)").c_str(); }

std::wstring hexadecimal(std::uintptr_t value) {
    return tv::text::format(L"0x%08X", static_cast<unsigned>(value));
}

std::wstring grouped(int value) {
    std::wstring text = std::to_wstring(value);
    constexpr std::size_t group = 3;
    for (std::size_t at = text.size(); at > group;)
        text.insert(at -= group, 1, L',');
    return text;
}

std::wstring handleText(OdDbObjectId id) { return L"#" + tv::text::fromUtf8(id.handle().ascii()); }

std::wstring colorItem(std::uintptr_t item, const OdCmColor& color) {
    constexpr std::uintptr_t firstColor = 0x1000000; // what is below only marks an entry of the list
    if (item < firstColor) return tv::text::printInt(static_cast<std::int64_t>(item));
    const std::wstring meaning =
        color.isByLayer() || color.isByBlock() || color.isByColor()
            ? kx::frame::colorText(color)
            : tv::text::format(VORD_ResourceString("IDS_TAVO_GALLERY_COLOR_INDEX", L"색상 %d"),
                               color.colorIndex());
    return hexadecimal(item) + L": " + meaning;
}

std::wstring variable(const wchar_t* name, int value) { return tv::text::format(L"%s = %d", name, value); }

} // namespace gallery
