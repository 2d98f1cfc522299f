#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/ListBox.h"
#include "platform/toolkit/Static.h"

#include <string>

// Chooses a block of the drawing to stand at the ends of dimension lines. Blocks of spaces, of external
// references, those without a name of their own and the built-in arrowheads are not offered.
class KXGUI_EXPORT CArrowBlockDlg : public VORDRunDlg {
  public:
    CArrowBlockDlg(const OdDbDatabasePtr& database, CWnd* parent);

    // What is selected when it opens, letter case aside.
    void SetName(std::wstring_view name) { m_name = name; }
    // What was chosen after IDOK; else what it opened on.
    const std::wstring& GetName() const { return m_name; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    OdDbDatabasePtr m_database;
    std::wstring m_name;

    CStatic m_label{*this, "IDC_ARROW_BLOCK_LABEL"};
    CListBox m_list{*this, "IDC_ARROW_BLOCK_LIST"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};

namespace kx::frame {
// The names it offers, in the order readers expect.
KXGUI_EXPORT std::vector<std::wstring> arrowBlockNames(const OdDbDatabase& database);
// "_Dot": a name of the arrowheads that are not drawn by users, with or without the underscore.
KXGUI_EXPORT bool isBuiltInArrow(std::wstring_view name);
} // namespace kx::frame
