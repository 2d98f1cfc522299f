#pragma once

#include "platform/toolkit/Wnd.h"

#include <functional>

// Tabs, each showing one page: a window of kind `page` whose controls it holds. Only the selected page is visible.
class KXPLATFORM_EXPORT CTabCtrl : public CWnd {
  public:
    CTabCtrl(CWnd& parent, const char* name) : CWnd(parent, name) {}
    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::tab; }
    bool focusable() const override { return true; }

    // The page must live as long as this control.
    int AddPage(CWnd& page, std::wstring_view title);
    void SetPageTitle(int index, std::wstring_view title);
    int GetItemCount() const { return static_cast<int>(m_pages.size()); }
    CWnd& page(int index) const { return *m_pages.at(static_cast<std::size_t>(index)).wnd; }
    const std::wstring& title(int index) const { return m_pages.at(static_cast<std::size_t>(index)).title; }
    int GetCurSel() const { return m_curSel; }
    int SetCurSel(int index);

    std::function<void()> onSelChange;

    tv::ui::UserResult userChoose(int index);
    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    bool controlKey(const tv::ui::KeyEvent& key) override;
    void describe(tv::ui::ControlSnapshot& out) const override;

  private:
    struct Page {
        CWnd* wnd;
        std::wstring title;
    };
    void showSelected();
    std::vector<Page> m_pages;
    int m_curSel = -1;
};
