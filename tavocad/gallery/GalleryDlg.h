#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/TabCtrl.h"
#include "tavocad/gallery/GalleryListPage.h"
#include "tavocad/gallery/GalleryPropertyPages.h"
#include "tavocad/gallery/GalleryUnitsPage.h"

#include <vector>

// Shows every property list of the library, filled from the current drawing, and the editable list. Nothing
// that is chosen or entered here reaches the drawing.
class CGalleryDlg : public VORDRunDlg {
  public:
    explicit CGalleryDlg(CWnd* parent);

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override { return 1; }

  protected:
    void OnDestroy() override;

  private:
    std::vector<CGalleryPage*> pages();
    void showType();

    CStatic m_note{*this, "IDC_GALLERY_NOTE"};
    CStatic m_typeLabel{*this, "IDC_GALLERY_TYPE_LABEL"};
    CComboBox m_type{*this, "IDC_GALLERY_TYPE"};
    CCheckBox m_enabled{*this, "IDC_GALLERY_ENABLED"};
    CTabCtrl m_tabs{*this, "IDC_GALLERY_TABS"};
    CGalleryColorsPage m_colors{m_tabs, "IDC_GALLERY_COLORS_PAGE"};
    CGalleryLinesPage m_lines{m_tabs, "IDC_GALLERY_LINES_PAGE"};
    CGalleryTextPage m_text{m_tabs, "IDC_GALLERY_TEXT_PAGE"};
    CGalleryStylesPage m_styles{m_tabs, "IDC_GALLERY_STYLES_PAGE"};
    CGalleryUnitsPage m_units{m_tabs, "IDC_GALLERY_UNITS_PAGE"};
    CGalleryListPage m_list{m_tabs, "IDC_GALLERY_LIST_PAGE"};
    CButton m_help{*this, "IDC_GALLERY_HELP"};
    CButton m_close{*this, "IDCANCEL"};
};
