#pragma once

#include "kxgui/frame/ColorPage.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"
#include "platform/toolkit/SwatchGrid.h"

// The 255 indexed colours, ByLayer and ByBlock, by pointing at them or by number and name.
class KXGUI_EXPORT CColorIndexPage : public CColorPage {
  public:
    // `special`: ByLayer and ByBlock can be chosen.
    CColorIndexPage(CWnd& parent, const char* name, bool special);

    void SetText() override;
    void InitCtrl() override;
    CEdit& firstField() override { return m_edit; }

  protected:
    void showColor(const OdCmColor& color) override;

  private:
    void wire(CSwatchGrid& grid);
    void pick(const OdCmColor& color); // pointed at, not entered
    void showInfo(const OdCmColor& color);
    void markCell(const OdCmColor& color);
    void entered();

    bool m_special;
    OdCmColor m_color;

    CStatic m_paletteLabel{*this, "IDC_COLOR_PALETTE_LABEL"};
    CSwatchGrid m_palette;
    CStatic m_info{*this, "IDC_COLOR_INFO"};
    CStatic m_standardLabel{*this, "IDC_COLOR_STANDARD_LABEL"};
    CSwatchGrid m_standard;
    CStatic m_greyLabel{*this, "IDC_COLOR_GREY_LABEL"};
    CSwatchGrid m_grey;
    CButton m_byLayer{*this, "IDC_COLOR_BYLAYER"};
    CButton m_byBlock{*this, "IDC_COLOR_BYBLOCK"};
    CStatic m_editLabel{*this, "IDC_COLOR_NAME_LABEL"};
    CEdit m_edit{*this, "IDC_COLOR_NAME"};
};
