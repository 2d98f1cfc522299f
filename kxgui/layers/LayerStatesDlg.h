#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "kxgui/layers/LayerStateCompare.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/Static.h"

#include <functional>
#include <memory>
#include <string>

// The layer states of a drawing: saved, restored, compared, renamed, deleted. Every write is one undo step and
// done at once; there is nothing to confirm when it closes.
class KXGUI_EXPORT CLayerStatesDlg : public VORDRunDlg {
  public:
    CLayerStatesDlg(const OdDbDatabasePtr& database, CWnd* parent);
    ~CLayerStatesDlg() override;

    // After each write, for those who show the layers.
    std::function<void()> onWritten;

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override { return 1; }
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;

  private:
    class Rows;
    void refresh(std::wstring_view selected);
    void showState();
    void selected();
    std::wstring selectedName() const;
    // Says what went wrong, else shows the states as they are now, with `name` selected.
    bool written(const tv::Problem& problem, std::wstring_view name);
    int mask() const;
    void setMask(int mask);
    void saveNew();
    void restore();
    void compare();
    void rename();
    void remove();

    OdDbDatabasePtr m_database;
    std::shared_ptr<Rows> m_rows;
    std::shared_ptr<tv::ui::TextRows> m_masks;

    CStatic m_listLabel{*this, "IDC_LAYER_STATES_LIST_LABEL"};
    CListCtrl m_list{*this, "IDC_LAYER_STATES_LIST"};
    CButton m_new{*this, "IDC_LAYER_STATES_NEW"};
    CButton m_restore{*this, "IDC_LAYER_STATES_RESTORE"};
    CButton m_compare{*this, "IDC_LAYER_STATES_COMPARE"};
    CButton m_rename{*this, "IDC_LAYER_STATES_RENAME"};
    CButton m_delete{*this, "IDC_LAYER_STATES_DELETE"};
    CStatic m_maskLabel{*this, "IDC_LAYER_STATES_MASK_LABEL"};
    CListCtrl m_mask{*this, "IDC_LAYER_STATES_MASK"};
    CCheckBox m_othersOff{*this, "IDC_LAYER_STATES_OTHERS_OFF"};
    CCheckBox m_current{*this, "IDC_LAYER_STATES_CURRENT"};
    CButton m_close{*this, "IDCANCEL"};
};

// The name and the description of a state.
class KXGUI_EXPORT CLayerStateNameDlg : public VORDRunDlg {
  public:
    // `accept` does what the name is for; what it refuses is told, and the dialog stays open.
    using Accept = std::function<tv::Problem(const std::wstring& name, const std::wstring& description)>;
    CLayerStateNameDlg(std::wstring caption, Accept accept, CWnd* parent);

    void SetData(std::wstring_view name, std::wstring_view description);
    const std::wstring& GetName() const { return m_stateName; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    std::wstring m_caption, m_stateName, m_description;
    Accept m_accept;

    CStatic m_nameLabel{*this, "IDC_LAYER_STATE_NAME_LABEL"};
    CEdit m_name{*this, "IDC_LAYER_STATE_NAME"};
    CStatic m_descriptionLabel{*this, "IDC_LAYER_STATE_DESCRIPTION_LABEL"};
    CEdit m_descriptionEdit{*this, "IDC_LAYER_STATE_DESCRIPTION"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};

// What a state says and the drawing says otherwise.
class KXGUI_EXPORT CLayerStateCompareDlg : public VORDRunDlg {
  public:
    CLayerStateCompareDlg(std::wstring state, std::vector<kx::layers::LayerDifference> differences,
                          CWnd* parent);

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override { return 1; }

  private:
    std::wstring m_state;
    std::vector<kx::layers::LayerDifference> m_differences;

    CStatic m_label{*this, "IDC_LAYER_STATE_COMPARE_LABEL"};
    CListCtrl m_list{*this, "IDC_LAYER_STATE_COMPARE_LIST"};
    CButton m_close{*this, "IDCANCEL"};
};
