#pragma once

#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/Static.h"

#include <optional>
#include <string_view>

// What a person may enter as the transparency of a layer.
class KXGUI_EXPORT CTransparencyValidator {
  public:
    static constexpr int kLeast = 0, kMost = 90; // percent
    // The whole number the text is; nothing for any other text and beyond the two ends.
    std::optional<int> Validate(std::wstring_view text) const;
};

// Asks for the transparency of layers.
class KXGUI_EXPORT CLayerTransparencyDlg : public VORDRunDlg {
  public:
    CLayerTransparencyDlg(int percent, CWnd* parent);

    // In percent: what was entered after IDOK, else what it opened on.
    int GetTransparency() const { return m_percent; }

    void SetText() override;
    void InitCtrl() override {}
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    int m_percent;
    CTransparencyValidator m_validator;

    CStatic m_label{*this, "IDC_LAYERTRANSPARENCY_LABEL"};
    CEdit m_value{*this, "IDC_LAYERTRANSPARENCY_VALUE"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
