#include "kxgui/layers/LayerTransparencyDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"

std::optional<int> CTransparencyValidator::Validate(std::wstring_view text) const {
    const auto value = tv::text::parseInt(text);
    if (!value || *value < kLeast || *value > kMost) return std::nullopt;
    return static_cast<int>(*value);
}

CLayerTransparencyDlg::CLayerTransparencyDlg(int percent, CWnd* parent)
    : VORDRunDlg(IDD_LAYER_TRANSPARENCY, parent), m_percent(percent) {
    m_value.LabelledBy(m_label);
}

void CLayerTransparencyDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_LAYERTRANSPARENCY_3", L"도면층 투명도"));
    m_label.SetWindowText(VORD_ResourceString("IDS_LAYERTRANSPARENCY_0", L"투명도 값(0-90)(&T):"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLayerTransparencyDlg::Data2Dlg() {
    m_value.SetWindowText(tv::text::format(L"%d", m_percent));
    m_value.SetFocus();
    m_value.SelectAll();
}

int CLayerTransparencyDlg::Dlg2Data() {
    const auto percent = m_validator.Validate(m_value.GetWindowText());
    if (percent) {
        m_percent = *percent;
        return 1;
    }
    MessageDlg(this,
               VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYERTRANSPARENCY_1",
                                   L"투명도 값이 유효하지 않습니다.\n0-90의 정수를 입력하십시오."),
               VORD_ResourceString("IDS_ZEL_MANAGED_UI_LAYERTRANSPARENCY_0", L"유효하지 않은 투명도 값"), 0x30);
    m_value.SetFocus();
    m_value.SelectAll();
    return 0;
}
