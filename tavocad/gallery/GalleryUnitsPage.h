#pragma once

#include "kxgui/controls/DSepCombo.h"
#include "kxgui/controls/UnitCombos.h"
#include "tavocad/gallery/GalleryPage.h"

// Units of lengths and angles, whose precisions follow their type.
class CGalleryUnitsPage : public CGalleryPage {
  public:
    CGalleryUnitsPage(CWnd& parent, const char* name);

  protected:
    void OnFilled() override;

  private:
    Exhibit<CCobxLUnit> m_lengthType{*this, "IDC_GALLERY_LUNIT"};
    Exhibit<CCobxLPrec> m_lengthPrecision{*this, "IDC_GALLERY_LPREC"};
    Exhibit<CCobxAUnit> m_angleType{*this, "IDC_GALLERY_AUNIT"};
    Exhibit<CCobxAPrec> m_anglePrecision{*this, "IDC_GALLERY_APREC"};
    Exhibit<CCobxDSep> m_separator{*this, "IDC_GALLERY_DSEP"};
};
