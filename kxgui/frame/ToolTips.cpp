#include "kxgui/frame/ToolTips.h"

#include "platform/text/ResourceString.h"

namespace kx::frame {

void enableToolTips(VORDBaseTooltip& tooltip, int enable) {
    if (!tooltip.exists()) return;
    tooltip.SetTitle(VORD_ResourceString("IDS_CAD_GUI_BASECHILD_DESC", L"타보캐드"));
    tooltip.Activate(enable != 0);
}

std::wstring toolTipText(const VORDBaseTooltip::Tool& tool) {
    return tool.title.empty() ? tool.text : tool.title + L"\n" + tool.text;
}

} // namespace kx::frame
