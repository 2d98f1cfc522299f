#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/Static.h"

#include <string>

// Writes the layer table of a drawing as a list (LayerCsv.h). IDOK when the file is written.
class KXGUI_EXPORT CLayerExportDlg : public VORDRunDlg {
  public:
    CLayerExportDlg(const OdDbDatabasePtr& database, CWnd* parent);

    void SetPath(std::wstring_view path) { m_path = path; }
    const std::wstring& GetPath() const { return m_path; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    OdDbDatabasePtr m_database;
    std::wstring m_path;

    CStatic m_pathLabel{*this, "IDC_LAYER_EXPORT_PATH_LABEL"};
    CEdit m_pathEdit{*this, "IDC_LAYER_EXPORT_PATH"};
    CStatic m_count{*this, "IDC_LAYER_EXPORT_COUNT"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
