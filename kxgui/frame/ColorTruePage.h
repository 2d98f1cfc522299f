#pragma once

#include "kxgui/frame/ColorModel.h"
#include "kxgui/frame/ColorPage.h"
#include "platform/toolkit/ComboBox.h"
#include "platform/toolkit/SliderCtrl.h"
#include "platform/toolkit/Static.h"

#include <array>

// A true colour by its parts in the RGB or the HSL model, by sliders, or by its hexadecimal text. All of them
// stay in step; what a person types is never rewritten while it is typed.
class KXGUI_EXPORT CColorTruePage : public CColorPage {
  public:
    CColorTruePage(CWnd& parent, const char* name);

    void SetText() override;
    void InitCtrl() override;
    CEdit& firstField() override { return m_parts[0].edit; }

  protected:
    void showColor(const OdCmColor& color) override;

  private:
    // Label, field and slider of one part.
    struct Part {
        Part(CWnd& page, const char* labelName, const char* editName, const char* sliderName)
            : label(page, labelName), edit(page, editName), slider(page, sliderName) {}
        CStatic label;
        CEdit edit;
        CSliderCtrl slider;
    };
    void wire(std::size_t part);
    void showModel();
    void showParts(const CEdit* but);
    void partEntered(std::size_t part);
    void hexEntered();
    void partsChanged(const CEdit* but);

    kx::frame::ColorModel m_model = kx::frame::ColorModel::rgb;
    kx::frame::Rgb m_rgb;
    // As shown: in the HSL model several of these stand for one colour, and a person's hue is kept at zero
    // saturation.
    kx::frame::ColorParts m_values{};

    CStatic m_modelLabel{*this, "IDC_COLOR_MODEL_LABEL"};
    CComboBox m_modelBox{*this, "IDC_COLOR_MODEL"};
    std::array<Part, 3> m_parts{
        {{*this, "IDC_COLOR_PART1_LABEL", "IDC_COLOR_PART1", "IDC_COLOR_PART1_SLIDER"},
         {*this, "IDC_COLOR_PART2_LABEL", "IDC_COLOR_PART2", "IDC_COLOR_PART2_SLIDER"},
         {*this, "IDC_COLOR_PART3_LABEL", "IDC_COLOR_PART3", "IDC_COLOR_PART3_SLIDER"}}};
    CStatic m_hexLabel{*this, "IDC_COLOR_HEX_LABEL"};
    CEdit m_hex{*this, "IDC_COLOR_HEX"};
};
