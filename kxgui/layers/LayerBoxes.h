#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerNameRules.h"

#include <string>
#include <string_view>

class CWnd;

// What the layer manager tells and asks, in the current language.
namespace kx::layers {

struct LayerBox {
    std::wstring caption, text;
};

KXGUI_EXPORT LayerBox notDeletedBox(int selected, int refused);
KXGUI_EXPORT LayerBox oneCurrentOnlyBox();
KXGUI_EXPORT LayerBox notCurrentBox();
KXGUI_EXPORT LayerBox drawOnLayerOffBox();
KXGUI_EXPORT LayerBox keepsNameBox();
KXGUI_EXPORT LayerBox nameBox(LayerTextFault fault);
KXGUI_EXPORT LayerBox descriptionBox(LayerTextFault fault);
KXGUI_EXPORT LayerBox notFrozenBox();
KXGUI_EXPORT LayerBox zeroNotMergedBox();
KXGUI_EXPORT LayerBox currentNotMergedBox();
KXGUI_EXPORT LayerBox filterKeptBox(std::wstring_view filter);
KXGUI_EXPORT LayerBox plotStylesByColorBox();
KXGUI_EXPORT LayerBox editedLayerGoneBox();
// The drawing refused a write; nothing was changed.
KXGUI_EXPORT LayerBox notWrittenBox(const OdDbDatabase& database, Tavo::ErrorStatus status);

void warn(CWnd* parent, const LayerBox& box);
// False when the person thought better of it.
bool confirm(CWnd* parent, const LayerBox& box);
// Whether the current layer is to be switched off in spite of everything.
bool askCurrentOff(CWnd* parent);

} // namespace kx::layers
