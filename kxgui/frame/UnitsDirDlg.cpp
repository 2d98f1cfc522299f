#include "kxgui/frame/UnitsDirDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "platform/host/units/AngleFormat.h"
#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"

using kx::frame::Compass;

CUnitsDirDlg::CUnitsDirDlg(int angleType, int anglePrecision, double angle, int clockwise, CWnd* parent)
    : VORDRunDlg(IDD_UNITS_DIRECTION, parent), m_angleType(angleType), m_anglePrecision(anglePrecision),
      m_angle(angle), m_clockwise(clockwise != 0) {
    for (CRadioButton* button : {&m_east, &m_north, &m_west, &m_south, &m_other})
        button->onClick = [this] { compassChanged(); };
    m_pickButton.onClick = [this] {
        m_pick = true;
        EndDialog(IDOK);
    };
    m_angleEdit.LabelledBy(m_angleLabel);
}

void CUnitsDirDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_11", L"뱡향 조정"));
    m_group.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_0", L"기준 각도(&B)"));
    m_east.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_8", L"동(&E)"));
    m_north.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_7", L"북(&N)"));
    m_west.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_6", L"서(&W)"));
    m_south.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_5", L"남(&S)"));
    m_other.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_4", L"기타(&O)"));
    m_pickButton.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_1", L"화면지정..."));
    m_angleLabel.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_2", L"각도(&A):"));
    m_chooseLabel.SetWindowText(VORD_ResourceString("IDS_UNITDIRECTIONDLG_3", L"선택 / 입력"));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CUnitsDirDlg::InitCtrl() { m_pick = false; }

void CUnitsDirDlg::Data2Dlg() {
    m_shownEntry = kx::frame::entryText(m_angle, m_angleType, m_anglePrecision, m_clockwise);
    m_angleEdit.SetWindowText(m_shownEntry);
    select(kx::frame::compassOf(m_angle));
    radio(m_radio).SetFocus();
}

CRadioButton& CUnitsDirDlg::radio(Compass compass) {
    switch (compass) {
    case Compass::east:
        return m_east;
    case Compass::north:
        return m_north;
    case Compass::west:
        return m_west;
    case Compass::south:
        return m_south;
    case Compass::other:
        break;
    }
    return m_other;
}

void CUnitsDirDlg::select(Compass compass) {
    m_radio = compass;
    radio(compass).SetCheck(true);
    enableEntry();
}

void CUnitsDirDlg::compassChanged() {
    for (const Compass compass : {Compass::east, Compass::north, Compass::west, Compass::south, Compass::other})
        if (radio(compass).GetCheck()) m_radio = compass;
    enableEntry();
}

void CUnitsDirDlg::enableEntry() {
    const bool other = m_radio == Compass::other;
    m_angleLabel.EnableWindow(other);
    m_angleEdit.EnableWindow(other);
    m_pickButton.EnableWindow(other);
    if (other) m_angleEdit.SelectAll();
}

int CUnitsDirDlg::Dlg2Data() {
    if (m_radio == Compass::other && m_angleType == static_cast<int>(tv::host::AngleUnits::kSurveyor))
        if (const auto letter = kx::frame::compassOfLetter(m_angleEdit.GetWindowText(), m_clockwise))
            select(*letter);
    if (m_radio != Compass::other) {
        m_angle = kx::frame::compassAngle(m_radio);
        return 1;
    }
    return gatherEntry() ? 1 : 0;
}

bool CUnitsDirDlg::gatherEntry() {
    const std::wstring text = m_angleEdit.GetWindowText();
    if (text == m_shownEntry) return true;
    const auto value = kx::frame::angleEntry(text, m_angleType);
    if (!value) {
        MessageDlg(this,
                   tv::text::format(
                       VORD_ResourceString("IDS_TAVO_UNITDIR_INVALID",
                                           L"기준 각도를 읽을 수 없습니다. 입력한 값 \"%s\" 대신 45, 12.5 또는 "
                                           L"45d30'15\"와 같은 각도를 입력하십시오."),
                       text)
                       .c_str(),
                   GetWindowText().c_str(), 0x30);
        m_angleEdit.SetFocus();
        m_angleEdit.SelectAll();
        return false;
    }
    m_angle = kx::frame::baseAngleOfEntry(kx::frame::enteredToRadians(*value, m_angleType), m_clockwise);
    return true;
}
