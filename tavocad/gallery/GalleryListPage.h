#pragma once

#include "kxgui/controls/VORDBaseListCtrl.h"
#include "kxgui/frame/VORDBaseChildDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/ListColumnsMemory.h"
#include "platform/toolkit/SortedRows.h"
#include "platform/toolkit/Static.h"
#include "tavocad/gallery/GalleryRows.h"

// The gallery's list: its columns are edited as they declare, that of states is toggled.
class CGalleryList : public VORDBaseListCtrl {
  public:
    CGalleryList(CWnd& parent, const char* name) : VORDBaseListCtrl(parent, name, true) {}
    bool OnItemLButtonClick(int item, int column) override;
    // F2 toggles too.
    bool controlKey(const tv::ui::KeyEvent& key) override;

  private:
    bool toggle(int item);
};

// The editable list with everything it can do, over a few rows or very many. What is entered changes these rows
// only.
class CGalleryListPage : public VORDBaseChildDlg {
  public:
    CGalleryListPage(CWnd& parent, const char* name);

    void SetText();
    void InitCtrl();
    // Remembers the arrangement of the columns.
    void SaveColumns() { m_memory.save(m_list); }

  private:
    void setColumns();
    void setRows();
    void ended(const LVDispInfo& info);
    void say(const std::wstring& sentence) { m_log.SetWindowText(sentence); }
    void showCount();

    std::shared_ptr<GalleryRows> m_rows;
    std::shared_ptr<tv::ui::SortedRows> m_sorted;
    tv::ui::ListColumnsMemory m_memory;

    CStatic m_countLabel{*this, "IDC_GALLERY_ROWS_LABEL"};
    CComboBox m_rowCount{*this, "IDC_GALLERY_ROWS"};
    CStatic m_highlightLabel{*this, "IDC_GALLERY_HIGHLIGHT_LABEL"};
    CComboBox m_highlight{*this, "IDC_GALLERY_HIGHLIGHT"};
    CStatic m_listLabel{*this, "IDC_GALLERY_LIST_LABEL"};
    CGalleryList m_list{*this, "IDC_GALLERY_LIST"};
    CStatic m_count{*this, "IDC_GALLERY_COUNT"};
    CButton m_selectAll{*this, "IDC_GALLERY_SELECT_ALL"};
    CButton m_invert{*this, "IDC_GALLERY_INVERT"};
    CButton m_restore{*this, "IDC_GALLERY_RESTORE"};
    CStatic m_log{*this, "IDC_GALLERY_LOG"};
};
