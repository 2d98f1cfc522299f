#pragma once

#include "kxgui/controls/ListEditableCtrl.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "kxgui/sysvars/SysVarModel.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListColumnsMemory.h"
#include "platform/toolkit/Static.h"

// All system variables as a table whose values are edited in place. Nothing is written before OK or Apply,
// which write every changed value as one undo step; Cancel drops them.
class KXGUI_EXPORT CSysVarsDlg : public VORDRunDlg {
  public:
    // Without a drawing those of the drawing have no values and can't be edited.
    CSysVarsDlg(const OdDbDatabasePtr& database, CWnd* parent);

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;
    void OnCancel() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;

  protected:
    void OnDestroy() override;

  private:
    // Shows the rows that fit the filter now; the selected variables stay selected.
    void refresh();
    void showState();
    void entered(const InPlaceAnswer& answer);
    void say(const std::wstring& sentence);
    std::vector<int> selectedEntries() const;
    void resetSelected();
    void defaultSelected();
    // Writes what is staged. False when something was refused, which the person has been told.
    bool write();
    std::optional<OdCmColor> chooseColor(const OdCmColor& present, bool indexOnly);

    kx::sysvar::SysVarEdits m_edits;
    tv::ui::ListColumnsMemory m_columns;
    std::shared_ptr<kx::sysvar::SysVarModel> m_model;
    bool m_confirming = false, m_toRead = false; // on the way to OK something was said that shall be read first

    CStatic m_filterLabel{*this, "IDC_SYSVARS_FILTER_LABEL"};
    CEdit m_filter{*this, "IDC_SYSVARS_FILTER"};
    CCheckBox m_onlyChanged{*this, "IDC_SYSVARS_ONLY_CHANGED"};
    CStatic m_listLabel{*this, "IDC_SYSVARS_LIST_LABEL"};
    CListEditableCtrl m_list{*this, "IDC_SYSVARS_LIST", true};
    CStatic m_said{*this, "IDC_SYSVARS_SAID"};
    CStatic m_count{*this, "IDC_SYSVARS_COUNT"};
    CButton m_reset{*this, "IDC_SYSVARS_RESET"};
    CButton m_default{*this, "IDC_SYSVARS_DEFAULT"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
    CButton m_apply{*this, "IDC_SYSVARS_APPLY"};
};
