#include "kxgui/layers/LayerTexts.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/LineWeightNames.h"
#include "kxgui/layers/LayerCellItems.h"
#include "platform/text/ResourceString.h"

namespace kx::layers {

std::wstring yesNoText(bool yes) {
    return yes ? VORD_ResourceString("IDS_TAVO_LAYERS_YES", L"예").c_str()
               : VORD_ResourceString("IDS_TAVO_LAYERS_NO", L"아니요").c_str();
}

std::wstring layerColorText(const OdCmColor& color, std::wstring_view book) {
    std::wstring text = kx::frame::colorText(color);
    if (!book.empty()) text.append(L" ").append(book);
    return text;
}

std::wstring layerWeightText(OdDb::LineWeight weight) {
    return kx::frame::lineWeightText(weight, kx::frame::lineWeightsInInches());
}

std::wstring layerColumnText(LayerColumn column) {
    return layerColumns()[static_cast<std::size_t>(column)].title;
}

std::wstring literalMenuText(std::wstring_view name) {
    std::wstring out;
    for (const wchar_t c : name)
        out.append(c == L'&' ? 2 : 1, c);
    return out;
}

} // namespace kx::layers
