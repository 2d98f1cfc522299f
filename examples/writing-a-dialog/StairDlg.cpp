#include "StairDlg.h"

#include "kxgui/frame/Messages.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/ModuleChain.h"

//! [template]
namespace {
constexpr unsigned IDD_STAIR = 6001;
constexpr tv::ui::DialogTemplate templates[] = {{IDD_STAIR, "IDD_STAIR", {170, 80}, false}};
} // namespace

bool registerStairTemplates() { return tv::ui::ModuleChain::instance().add({"stair", false, templates}); }
//! [template]

//! [construct]
CStairDlg::CStairDlg(CWnd* parent) : VORDRunDlg(IDD_STAIR, parent) {
    m_height.LabelledBy(m_heightLabel);
    m_riser.LabelledBy(m_riserLabel);
    m_height.onChange = [this] { refreshResult(); };
    m_riser.onChange = [this] { refreshResult(); };
}
//! [construct]

//! [texts]
void CStairDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_STAIR_TITLE", L"계단"));
    m_heightLabel.SetWindowText(VORD_ResourceString("IDS_STAIR_HEIGHT", L"층 높이(&H):"));
    m_riserLabel.SetWindowText(VORD_ResourceString("IDS_STAIR_RISER", L"단 높이(&R):"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_STAIR_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_STAIR_CANCEL", L"취소"));
}
//! [texts]

//! [values]
void CStairDlg::InitCtrl() {
    m_height.SetLimitText(20);
    m_riser.SetLimitText(20);
}

void CStairDlg::Data2Dlg() {
    m_height.SetWindowText(tv::text::printReal(m_data.height));
    m_riser.SetWindowText(tv::text::printReal(m_data.riser));
    refreshResult(); // the setters above fire no handler
}

T_STAIR_D CStairDlg::entered() const {
    return {tv::text::parseReal(m_height.GetWindowText()).value_or(0.0),
            tv::text::parseReal(m_riser.GetWindowText()).value_or(0.0)};
}

void CStairDlg::refreshResult() {
    const T_STAIR_D stair = entered();
    const int count = riserCount(stair);
    m_result.SetWindowText(count
                               ? tv::text::format(VORD_ResourceString("IDS_STAIR_RESULT", L"%d단, 각 %.1f mm"),
                                                  count, stair.height / count)
                               : std::wstring());
}
//! [values]

//! [check]
int CStairDlg::Dlg2Data() {
    const T_STAIR_D stair = entered();
    if (riserCount(stair) == 0) {
        MessageDlg(
            this,
            VORD_ResourceString("IDS_STAIR_INVALID", L"두 높이를 0보다 큰 수로 입력하십시오. 예: 2800과 175"),
            GetWindowText().c_str(), 0x30);
        m_height.SetFocus();
        m_height.SelectAll();
        return 0;
    }
    m_data = stair;
    return 1;
}
//! [check]
