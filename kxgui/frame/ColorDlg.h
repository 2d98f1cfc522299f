#pragma once

#include "kxgui/frame/ColorIndexPage.h"
#include "kxgui/frame/ColorTruePage.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/toolkit/DrawArea.h"
#include "platform/toolkit/TabCtrl.h"

#include <optional>
#include <vector>

// Chooses a colour: an indexed one, ByLayer or ByBlock, or a true colour. Colours chosen with OK are remembered
// in the user's settings and offered again.
class KXGUI_EXPORT CColorDlg : public VORDRunDlg {
  public:
    enum Options : unsigned {
        kPlain = 0,
        kSpecial = 1,         // ByLayer and ByBlock can be chosen
        kHideTrueColorTab = 2 // indexed colours only
    };

    // Opens on `color`; a true colour without its page shows as the nearest indexed one.
    CColorDlg(const OdCmColor& color, unsigned options, CWnd* parent);

    // What was chosen; what it opened on unless the run ended with IDOK.
    const OdCmColor& GetColor() const { return m_result; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    std::vector<CColorPage*> pages();
    // A person chose `color` on `from` (null: among the recent ones): everything else shows it.
    void chosen(const OdCmColor& color, const CColorPage* from);
    void showPreview();

    OdCmColor m_result, m_color;
    bool m_special;
    std::vector<OdCmColor> m_recentColors;

    CTabCtrl m_tabs{*this, "IDC_COLOR_TABS"};
    CColorIndexPage m_indexPage;
    std::optional<CColorTruePage> m_truePage;
    CStatic m_recentLabel{*this, "IDC_COLOR_RECENT_LABEL"};
    CSwatchGrid m_recent;
    CStatic m_previewLabel{*this, "IDC_COLOR_PREVIEW_LABEL"};
    CDrawArea m_preview{*this, "IDC_COLOR_PREVIEW"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
