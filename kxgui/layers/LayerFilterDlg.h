#pragma once

#include "kxgui/controls/ListEditableCtrl.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "kxgui/layers/LayerFilterPreview.h"
#include "kxgui/layers/LayerFilterRows.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListColumnsMemory.h"
#include "platform/toolkit/Static.h"

#include <functional>
#include <memory>
#include <string>

// The name and the conditions of a property filter, with a preview of the layers it selects. Writes nothing:
// the caller takes name and expression when it ended with IDOK.
class KXGUI_EXPORT CLayerFilterDlg : public VORDRunDlg {
  public:
    // `viewport`: the active one, for conditions about it.
    CLayerFilterDlg(OdDbDatabase* database, CWnd* parent, OdDbObjectId viewport = {});

    // --- before the run ---
    void SetName(std::wstring_view name) { m_filterName = name; }
    // One that can't be understood is shown as it is, and stays so unless it is changed.
    void SetExpression(std::wstring_view expression) { m_given = expression; }
    // Why the filter can't have a name, in one sentence; empty when it can.
    std::function<std::wstring(const std::wstring& name)> validateName;
    // What the filters above a nested one let through.
    void SetWithin(kx::layers::LayerFilterPreview::Matcher within) { m_preview->setWithin(std::move(within)); }

    // --- after one that ended with IDOK ---
    const std::wstring& GetName() const { return m_filterName; }
    // The usual form, or what SetExpression gave when nothing was changed.
    const std::wstring& GetExpression() const { return m_given; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;
    bool PreTranslateMessage(const tv::ui::KeyEvent& key) override;

  private:
    void entered(const InPlaceAnswer& answer);
    void rowsEdited();
    void expressionEdited();
    void removeRows();
    void showExpression(bool text, bool rows, bool atOnce = false);
    void showState();
    void showCount();
    void say(const std::wstring& sentence) { m_said.SetWindowText(sentence); }

    std::wstring m_filterName, m_given;
    kx::layers::LayerFilterExpression m_expression;
    bool m_changed = false; // it is no longer the one that was given
    bool m_confirming = false, m_toRead = false;
    tv::ui::ListColumnsMemory m_columns;
    std::shared_ptr<kx::layers::LayerFilterRows> m_model;
    std::shared_ptr<kx::layers::LayerFilterPreview> m_preview;

    CStatic m_nameLabel{*this, "IDC_LAYER_FILTER_NAME_LABEL"};
    CEdit m_name{*this, "IDC_LAYER_FILTER_NAME"};
    CStatic m_rowsLabel{*this, "IDC_LAYER_FILTER_ROWS_LABEL"};
    CListEditableCtrl m_rows{*this, "IDC_LAYER_FILTER_ROWS", true};
    CButton m_remove{*this, "IDC_LAYER_FILTER_REMOVE"};
    CStatic m_textLabel{*this, "IDC_LAYER_FILTER_TEXT_LABEL"};
    CEdit m_text{*this, "IDC_LAYER_FILTER_TEXT"};
    CStatic m_said{*this, "IDC_LAYER_FILTER_SAID"};
    CStatic m_previewLabel{*this, "IDC_LAYER_FILTER_PREVIEW_LABEL"};
    CListCtrl m_list{*this, "IDC_LAYER_FILTER_PREVIEW"};
    CStatic m_count{*this, "IDC_LAYER_FILTER_COUNT"};
    CCheckBox m_contrary{*this, "IDC_LAYER_FILTER_CONTRARY"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
