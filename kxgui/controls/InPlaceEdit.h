#pragma once

#include "kxgui/Export.h"
#include "platform/toolkit/Edit.h"

#include <optional>
#include <string>

class VORDBaseListCtrl;

// The edit field over a cell of a VORDBaseListCtrl. It grows to the right with its text as far as the list
// goes. Enter and the focus leaving take its text, Escape does not; either way the list hears of it once.
class KXGUI_EXPORT CInPlaceEdit : public CEdit {
  public:
    static constexpr int kControlId = 10978;
    static constexpr const char* kName = "IDC_INPLACE_EDIT";

    // Begins with `text`, all of it marked. `whenCancelled` is what a cancelled edit reports, normally nothing.
    CInPlaceEdit(VORDBaseListCtrl& list, std::wstring_view text,
                 std::optional<std::wstring> whenCancelled = {});

    int GetDlgCtrlID() const { return kControlId; }
    bool cancelled() const { return m_cancelled; }
    // What the list is told: an empty text is none.
    std::optional<std::wstring> result() const;

    tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent& key) override;
    void OnKillFocus() override;

  private:
    void grow();
    VORDBaseListCtrl& m_list;
    std::optional<std::wstring> m_whenCancelled;
    bool m_cancelled = false;
};
