#pragma once

#include "kxgui/Export.h"
#include "kxgui/controls/ColorCombos.h"
#include "kxgui/controls/IToolbarComboBox.h"
#include "kxgui/controls/LayerCombos.h"
#include "kxgui/controls/LineWeightCombo.h"
#include "kxgui/controls/LinetypeCombos.h"
#include "kxgui/controls/StyleCombos.h"
#include "kxgui/controls/TextSizeCombo.h"
#include "kxgui/controls/ToolbarRequests.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/ControlBar.h"

#include <array>
#include <functional>
#include <memory>

// The bar of the properties of new objects, or of the selected ones: layer, colour, linetype, lineweight, text
// style, dimension style, text height and plot style. While it is hidden it follows nothing.
class KXGUI_EXPORT CPropertiesBar : public CControlBar {
  public:
    CPropertiesBar();
    ~CPropertiesBar() override;

    int OnInitDialog() override;
    void ShowBar(bool show);
    void settle() override;

    IToolbarComboBox& box(kx::controls::Property property);

    // The button beside the layers was clicked: the host opens its layer manager. Unset when the bar is
    // created, the button is hidden.
    std::function<void()> onLayers;

  protected:
    void OnDestroy() override;

  private:
    void startRequests();

    CCobxLayer m_layer{*this, "IDC_PROPBAR_LAYER"};
    CButton m_layers{*this, "IDC_PROPBAR_LAYERS"};
    CCobxColor m_color{*this, "IDC_PROPBAR_COLOR"};
    CCobxLineType m_linetype{*this, "IDC_PROPBAR_LINETYPE"};
    CCobxLineWeight m_lineWeight{*this, "IDC_PROPBAR_LINEWEIGHT"};
    CCobxTextStyle m_textStyle{*this, "IDC_PROPBAR_TEXTSTYLE"};
    CCobxDimStyle m_dimStyle{*this, "IDC_PROPBAR_DIMSTYLE"};
    CCobxTextSize m_textHeight{*this, "IDC_PROPBAR_TEXTHEIGHT"};
    CCobxPrintStyle m_plotStyle{*this, "IDC_PROPBAR_PLOTSTYLE"};
    std::array<IToolbarComboBox, 8> m_boxes;
    std::unique_ptr<kx::controls::ToolbarRequests> m_requests;
    std::shared_ptr<void> m_languageHandle;
};
