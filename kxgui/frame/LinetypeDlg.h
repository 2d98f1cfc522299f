#pragma once

#include "kxgui/frame/LinetypeRows.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/Static.h"

// Chooses one of the linetypes of a drawing.
class KXGUI_EXPORT CLinetypeDlg : public VORDRunDlg {
  public:
    // `special`: ByLayer and ByBlock are offered. Without a drawing there is nothing to choose.
    CLinetypeDlg(const OdDbDatabasePtr& database, bool special, CWnd* parent);

    // What is selected when it opens: an object of the drawing, or a name (letter case aside).
    void SetLinetype(OdDbObjectId linetype) { m_chosen = {linetype, {}, {}, {}, false}; }
    void SetName(std::wstring_view name) { m_chosen = {{}, std::wstring(name), {}, {}, false}; }

    // Leaves out ByLayer and ByBlock of a drawing whose table lacks them: every choice is then an object.
    void SetRecordsOnly() { m_recordsOnly = true; }

    // After IDOK the object; a null id for ByLayer and ByBlock of a drawing whose table lacks them. The name
    // always says which.
    OdDbObjectId GetLinetype() const { return m_chosen.id; }
    const std::wstring& GetName() const { return m_chosen.name; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    void sortBy(int column);
    void showRows();
    int rowOfChosen() const;

    OdDbDatabasePtr m_database;
    bool m_special, m_recordsOnly = false;
    kx::frame::LinetypeRow m_chosen;
    std::vector<kx::frame::LinetypeRow> m_rows; // in the order shown

    CStatic m_label{*this, "IDC_LINETYPE_LABEL"};
    CListCtrl m_list{*this, "IDC_LINETYPE_LIST"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
