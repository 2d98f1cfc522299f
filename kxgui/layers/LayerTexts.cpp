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
    static constexpr tv::text::TableText kHeadings[] = {
        {"IDS_ZEL_MANAGED_UI_LAYER_26", L"상태"},
        {"IDS_ZEL_MANAGED_UI_LAYER_41", L"이름"},
        {"IDS_ZEL_MANAGED_UI_LAYER_45", L"켜기"},
        {"IDS_ZEL_MANAGED_UI_LAYER_22", L"동결"},
        {"IDS_ZEL_MANAGED_UI_LAYER_43", L"잠금"},
        {"IDS_MGD_COMMON_COLOR", L"색상"},
        {"IDS_MGD_COMMON_LTYPE", L"선종류"},
        {"IDS_ZEL_MANAGED_UI_LAYER_29", L"선가중치"},
        {"IDS_ZEL_MANAGED_UI_LAYER_46", L"투명도"},
        {"IDS_ZEL_MANAGED_UI_LAYER_49", L"플롯 스타일"},
        {"IDS_ZEL_MANAGED_UI_LAYER_48", L"플롯"},
        {"IDS_ZEL_MANAGED_UI_LAYER_27", L"새 VP 동결"},
        {"IDS_CAD_GUI_LAYER_VP_FROZEN", L"VP 동결"},
        {"IDS_CAD_GUI_LAYER_VP_COLOR", L"VP 색상"},
        {"IDS_CAD_GUI_LAYER_VP_LINETYPE", L"VP 선종류"},
        {"IDS_CAD_GUI_LAYER_VP_LINEWEIGHT", L"VP 선가중치"},
        {"IDS_CAD_GUI_LAYER_VP_TRANSPARENT", L"VP 투명도"},
        {"IDS_CAD_GUI_LAYER_VP_PLOTSTYLE", L"VP 플롯 스타일"},
        {"IDS_CAD_GUI_LAYER_COMMON_DESC", L"설명"},
    };
    static_assert(std::size(kHeadings) == kLayerColumns);
    return kHeadings[static_cast<std::size_t>(column)].text();
}

std::wstring literalMenuText(std::wstring_view name) {
    std::wstring out;
    for (const wchar_t c : name)
        out.append(c == L'&' ? 2 : 1, c);
    return out;
}

} // namespace kx::layers
