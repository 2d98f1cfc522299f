#pragma once

#include "kxgui/controls/ArrowCombo.h"
#include "kxgui/controls/ColorCombos.h"
#include "kxgui/controls/FontCombos.h"
#include "kxgui/controls/LayerCombos.h"
#include "kxgui/controls/LineWeightCombo.h"
#include "kxgui/controls/LinetypeCombos.h"
#include "kxgui/controls/StyleCombos.h"
#include "kxgui/controls/TextSizeCombo.h"
#include "tavocad/gallery/GalleryPage.h"

// A page of lists of drawing properties. They open on what new objects of the drawing get.
class CGalleryPropertyPage : public CGalleryPage {
  public:
    using CGalleryPage::CGalleryPage;

  protected:
    void addProperty(CCobxPropertyBase& list, kx::controls::Property property);
    void OnFilled() override;

  private:
    std::vector<std::pair<CCobxPropertyBase*, kx::controls::Property>> m_properties;
};

class CGalleryColorsPage : public CGalleryPropertyPage {
  public:
    CGalleryColorsPage(CWnd& parent, const char* name);

  protected:
    void OnFilled() override;

  private:
    Exhibit<CCobxColor> m_color{*this, "IDC_GALLERY_COLOR"};
    Exhibit<CSimpleColorCobx> m_simpleColor{*this, "IDC_GALLERY_SIMPLE_COLOR"};
    Exhibit<CCobxLayer> m_layer{*this, "IDC_GALLERY_LAYER"};
    Exhibit<CCobxLayerSimple> m_simpleLayer{*this, "IDC_GALLERY_SIMPLE_LAYER"};
};

class CGalleryLinesPage : public CGalleryPropertyPage {
  public:
    CGalleryLinesPage(CWnd& parent, const char* name);

  protected:
    void OnFilled() override;

  private:
    Exhibit<CCobxLineType> m_linetype{*this, "IDC_GALLERY_LINETYPE"};
    Exhibit<CCobxSimpleLineType> m_simpleLinetype{*this, "IDC_GALLERY_SIMPLE_LINETYPE"};
    Exhibit<CCobxLineWeight> m_lineweight{*this, "IDC_GALLERY_LINEWEIGHT"};
    Exhibit<CCobxArrowBlock> m_arrow{*this, "IDC_GALLERY_ARROW"};
};

// The styles follow the font.
class CGalleryTextPage : public CGalleryPropertyPage {
  public:
    CGalleryTextPage(CWnd& parent, const char* name);

  protected:
    void OnFilled() override;
    void OnChosen(VORDCobxBase& combo) override;

  private:
    Exhibit<CCobxTextStyle> m_style{*this, "IDC_GALLERY_TEXT_STYLE"};
    Exhibit<CCobxTextSize> m_size{*this, "IDC_GALLERY_TEXT_SIZE"};
    Exhibit<CCobxFont> m_font{*this, "IDC_GALLERY_FONT"};
    Exhibit<CCobxFontStyle> m_fontStyle{*this, "IDC_GALLERY_FONT_STYLE"};
};

class CGalleryStylesPage : public CGalleryPropertyPage {
  public:
    CGalleryStylesPage(CWnd& parent, const char* name);

  private:
    Exhibit<CCobxDimStyle> m_dimension{*this, "IDC_GALLERY_DIM_STYLE"};
    Exhibit<CCobxILeaderStyle> m_leader{*this, "IDC_GALLERY_ILEADER_STYLE"};
    Exhibit<CCobxMLeaderStyle> m_multileader{*this, "IDC_GALLERY_MLEADER_STYLE"};
    Exhibit<CCobxPrintStyle> m_plot{*this, "IDC_GALLERY_PLOT_STYLE"};
    Exhibit<CCobxScaleList> m_scale{*this, "IDC_GALLERY_SCALE"};
};
