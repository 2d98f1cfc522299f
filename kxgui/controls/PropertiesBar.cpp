#include "kxgui/controls/PropertiesBar.h"

#include "kxgui/frame/ModuleEntry.h"
#include "kxgui/frame/Templates.h"
#include "platform/text/MessageManager.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <vector>

using kx::controls::Property;

namespace {

std::function<std::wstring()> captionOf(Property property) {
    return [property]() -> std::wstring {
        switch (property) {
        case Property::layer:
            return VORD_ResourceString("IDS_TAVO_BAR_LAYER", L"도면층").c_str();
        case Property::color:
            return VORD_ResourceString("IDS_TAVO_BAR_COLOR", L"색상").c_str();
        case Property::linetype:
            return VORD_ResourceString("IDS_TAVO_BAR_LINETYPE", L"선종류").c_str();
        case Property::lineWeight:
            return VORD_ResourceString("IDS_TAVO_BAR_LINEWEIGHT", L"선가중치").c_str();
        case Property::textStyle:
            return VORD_ResourceString("IDS_TAVO_BAR_TEXTSTYLE", L"문자 스타일").c_str();
        case Property::dimStyle:
            return VORD_ResourceString("IDS_TAVO_BAR_DIMSTYLE", L"치수 스타일").c_str();
        case Property::textHeight:
            return VORD_ResourceString("IDS_TAVO_BAR_TEXTHEIGHT", L"문자 높이").c_str();
        case Property::plotStyle:
            return VORD_ResourceString("IDS_TAVO_BAR_PLOTSTYLE", L"플롯 스타일").c_str();
        }
        return {};
    };
}

} // namespace

CPropertiesBar::CPropertiesBar()
    : CControlBar(IDD_PROPERTIES_BAR),
      m_boxes{{{m_layer, Property::layer, captionOf(Property::layer)},
               {m_color, Property::color, captionOf(Property::color)},
               {m_linetype, Property::linetype, captionOf(Property::linetype)},
               {m_lineWeight, Property::lineWeight, captionOf(Property::lineWeight)},
               {m_textStyle, Property::textStyle, captionOf(Property::textStyle)},
               {m_dimStyle, Property::dimStyle, captionOf(Property::dimStyle)},
               {m_textHeight, Property::textHeight, captionOf(Property::textHeight)},
               {m_plotStyle, Property::plotStyle, captionOf(Property::plotStyle)}}} {}

CPropertiesBar::~CPropertiesBar() { DestroyWindow(); }

IToolbarComboBox& CPropertiesBar::box(Property property) {
    return *std::find_if(m_boxes.begin(), m_boxes.end(),
                         [&](const auto& box) { return box.property() == property; });
}

int CPropertiesBar::OnInitDialog() {
    const auto showCaption = [this] {
        SetWindowText(VORD_ResourceString("IDS_TAVO_BAR_PROPERTIES", L"특성"));
        m_layers.SetWindowText(VORD_ResourceString("IDS_TAVO_BAR_LAYERS", L"도면층..."));
        m_layers.SetToolTip(VORD_ResourceString("IDS_TAVO_HELP_LAYER", L"모든 도면층을 보고 바꿉니다"));
    };
    m_layers.ShowWindow(onLayers != nullptr);
    m_layers.onClick = [this] { onLayers(); };
    showCaption();
    m_languageHandle = VORD_MSGFunction::onLanguageChanged(showCaption);
    if (shown()) startRequests();
    return 1;
}

void CPropertiesBar::OnDestroy() {
    m_requests.reset();
    m_languageHandle.reset();
}

void CPropertiesBar::startRequests() {
    std::vector<IToolbarComboBox*> boxes;
    for (IToolbarComboBox& box : m_boxes)
        boxes.push_back(&box);
    m_requests = std::make_unique<kx::controls::ToolbarRequests>(std::move(boxes));
}

void CPropertiesBar::ShowBar(bool show) {
    if (!show) {
        LeaveKeyboard();
        m_requests.reset();
    } else if (created() && !m_requests) {
        startRequests();
    }
    ShowWindow(show);
}

void CPropertiesBar::settle() {
    if (m_requests) m_requests->Settle();
}
