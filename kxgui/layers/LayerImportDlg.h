#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "kxgui/layers/LayerCsv.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/Static.h"

// Reads a layer list into a drawing: shows first what every line would do, and does it when the person agrees.
// IDOK when it was done.
class KXGUI_EXPORT CLayerImportDlg : public VORDRunDlg {
  public:
    CLayerImportDlg(const OdDbDatabasePtr& database, CWnd* parent);

    // A file that is read when the dialog opens.
    void SetPath(std::wstring_view path) { m_path = path; }
    const std::wstring& GetPath() const { return m_path; }
    const kx::layers::LayerCsvPlan& GetPlan() const { return m_plan; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;

  private:
    void read();
    void showPlan();
    void showState();

    OdDbDatabasePtr m_database;
    std::wstring m_path;
    kx::layers::LayerCsvPlan m_plan;
    bool m_read = false; // the plan is that of the path shown

    CStatic m_pathLabel{*this, "IDC_LAYER_IMPORT_PATH_LABEL"};
    CEdit m_pathEdit{*this, "IDC_LAYER_IMPORT_PATH"};
    CButton m_readButton{*this, "IDC_LAYER_IMPORT_READ"};
    CStatic m_listLabel{*this, "IDC_LAYER_IMPORT_LIST_LABEL"};
    CListCtrl m_list{*this, "IDC_LAYER_IMPORT_LIST"};
    CStatic m_said{*this, "IDC_LAYER_IMPORT_SAID"};
    CCheckBox m_skip{*this, "IDC_LAYER_IMPORT_SKIP"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
