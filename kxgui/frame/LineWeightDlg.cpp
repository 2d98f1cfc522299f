#include "kxgui/frame/LineWeightDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>

using namespace kx::frame;

CLineWeightDlg::CLineWeightDlg(const OdDbDatabasePtr& database, CWnd* parent, LineWeightOffer offer)
    : VORDRunDlg(IDD_LINEWEIGHT, parent), m_rows(lineWeights(offer)) {
    int current = 0;
    if (database && tvedGetVar(L"CELWEIGHT", current, database) == Tavo::eOk)
        m_weight = static_cast<OdDb::LineWeight>(current);
    m_list.LabelledBy(m_label);
    m_list.onDoubleClick = [this](int, int) { OnOK(); };
}

void CLineWeightDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_TAVO_LINEWEIGHT_CAPTION", L"선가중치 선택"));
    m_label.SetWindowText(VORD_ResourceString("IDS_TAVO_LINEWEIGHT_LIST", L"선가중치(&L):"));
    m_list.SetColumns({{VORD_ResourceString("IDS_TAVO_LINEWEIGHT_COL_WIDTH", L"폭").c_str(), 120},
                       {VORD_ResourceString("IDS_TAVO_LINEWEIGHT_COL_SAMPLE", L"모양").c_str(), 60}});
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CLineWeightDlg::InitCtrl() {
    constexpr double hairline = 0.01; // the thinnest width is drawn as a line, too
    const bool inches = lineWeightsInInches();
    auto model = std::make_shared<tv::ui::TextRows>();
    for (const OdDb::LineWeight weight : m_rows) {
        auto& cells = model->rows.emplace_back();
        cells.resize(2);
        cells[0].text = lineWeightText(weight, inches);
        if (weight >= OdDb::kLnWt000)
            cells[1].picture = tv::ui::linePicture(std::max(hairline, millimetresOf(weight)));
    }
    m_list.SetModel(std::move(model));
}

void CLineWeightDlg::Data2Dlg() {
    const auto found = m_weight ? std::find(m_rows.begin(), m_rows.end(), *m_weight) : m_rows.end();
    if (found != m_rows.end()) {
        const int row = static_cast<int>(found - m_rows.begin());
        m_list.SetSelection({row});
        m_list.EnsureVisible(row);
    }
    m_list.SetFocus();
}

int CLineWeightDlg::Dlg2Data() {
    const int row = m_list.GetCurSel();
    if (row < 0) {
        MessageDlg(this, VORD_ResourceString("IDS_TAVO_LINEWEIGHT_NONE", L"목록에서 선가중치를 선택하십시오."),
                   GetWindowText().c_str(), 0x30);
        m_list.SetFocus();
        return 0;
    }
    m_weight = m_rows[static_cast<std::size_t>(row)];
    return 1;
}
