#include "kxgui/frame/UnitsDlg.h"

#include "kxgui/frame/Messages.h"
#include "kxgui/frame/Templates.h"
#include "kxgui/frame/UnitsDirDlg.h"
#include "kxgui/frame/UnitsSample.h"
#include "platform/drawing/Geometry.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoPointInput.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/host/units/UnitList.h"
#include "platform/text/MessageManager.h"
#include "platform/text/ResourceString.h"

#include <cmath>
#include <numbers>

CUnitsDlg::CUnitsDlg(OdDbDatabasePtr& database, double angle, CWnd* parent)
    : VORDRunDlg(IDD_UNITS, parent), m_database(database), m_baseAngle(angle) {
    m_lengthType.LabelledBy(m_lengthTypeLabel);
    m_lengthPrec.LabelledBy(m_lengthPrecLabel);
    m_angleType.LabelledBy(m_angleTypeLabel);
    m_anglePrec.LabelledBy(m_anglePrecLabel);
    m_insertUnit.LabelledBy(m_insertLabel);

    m_lengthType.onSelChange = [this] { refreshSamples(); };
    m_lengthPrec.onSelChange = [this] { refreshSamples(); };
    m_angleType.onSelChange = [this] { refreshAngleSample(); };
    m_anglePrec.onSelChange = [this] { refreshAngleSample(); };
    m_clockwise.onClick = [this] { refreshAngleSample(); };
    m_direction.onClick = [this] { OnUnitDir(); };
}

void CUnitsDlg::SetText() {
    SetWindowText(VORD_ResourceString("IDS_UNITDLG_15", L"도면 단위"));
    m_lengthGroup.SetWindowText(VORD_ResourceString("IDS_UNITDLG_0", L"길이"));
    m_lengthPrecLabel.SetWindowText(VORD_ResourceString("IDS_UNITDLG_1", L"정밀도(&P):"));
    m_lengthTypeLabel.SetWindowText(VORD_ResourceString("IDS_UNITDLG_2", L"유형(&T):"));
    m_angleGroup.SetWindowText(VORD_ResourceString("IDS_UNITDLG_3", L"각도"));
    m_clockwise.SetWindowText(VORD_ResourceString("IDS_UNITDLG_4", L"시계 방향(&C)"));
    m_anglePrecLabel.SetWindowText(VORD_ResourceString("IDS_UNITDLG_5", L"정밀도(&N):"));
    m_angleTypeLabel.SetWindowText(VORD_ResourceString("IDS_UNITDLG_6", L"유형(&Y):"));
    m_insertGroup.SetWindowText(VORD_ResourceString("IDS_UNITDLG_7", L"삽입 축척"));
    m_insertLabel.SetWindowText(VORD_ResourceString("IDS_UNITDLG_8", L"삽입된 컨텐츠를 축척할 단위:"));
    m_sampleGroup.SetWindowText(VORD_ResourceString("IDS_UNITDLG_9", L"샘플 출력"));
    m_direction.SetWindowText(VORD_ResourceString("IDS_UNITDLG_14", L"방향(&D)..."));
    m_ok.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_OK", L"확인"));
    m_cancel.SetWindowText(VORD_ResourceString("IDS_MGD_COMMON_CANCEL", L"취소"));
}

void CUnitsDlg::InitCtrl() {
    m_lengthType.SetDatabase(m_database);
    m_lengthPrec.SetDatabase(m_database);
    m_angleType.SetDatabase(m_database);
    m_anglePrec.SetDatabase(m_database);
    m_lengthType.SetChild({&m_lengthPrec});
    m_angleType.SetChild({&m_anglePrec});
    m_lengthType.SetComboBoxList();
    m_angleType.SetComboBoxList();
    fillInsertionUnits();
}

void CUnitsDlg::fillInsertionUnits() {
    // Every dialog shows the same list until other texts are loaded.
    static tv::ui::SharedItems made;
    static unsigned madeFor = 0;
    if (const unsigned texts = CNativeRCMsgMgr::getInstance()->generation(); !made || madeFor != texts) {
        std::vector<int> units;
        kx::unit::getUnitList(units, kx::unit::kInsertionScale);
        std::vector<tv::ui::ListItem> items;
        for (const int id : units)
            items.push_back(
                {kx::unit::getUnitName(id, kx::unit::kPlainName).wstr(), static_cast<std::uintptr_t>(id), {}});
        made = std::make_shared<const std::vector<tv::ui::ListItem>>(std::move(items));
        madeFor = texts;
    }
    m_insertUnit.SetItems(made);
}

void CUnitsDlg::Data2Dlg() {
    m_lengthType.SelectType(m_data.lunits);
    refreshSamples();
    m_lengthPrec.SelectValue(m_data.luprec);
    m_angleType.SelectType(m_data.aunits);
    refreshAngleSample();
    m_anglePrec.SelectValue(m_data.auprec);
    m_insertUnit.SetCurSel(m_insertUnit.FindItemData(static_cast<std::uintptr_t>(m_data.insunits)));
    m_clockwise.SetCheck(m_data.clockwise ? CCheckBox::checked : CCheckBox::unchecked);
    refreshSamples();
}

void CUnitsDlg::refreshSamples() {
    refreshLengthSample();
    refreshAngleSample();
}

void CUnitsDlg::refreshLengthSample() {
    if (m_lengthType.GetCurSel() < 0 || m_lengthPrec.GetCurSel() < 0) return;
    m_lengthSample.SetWindowText(kx::frame::lengthSample(m_lengthType.GetValue(0), m_lengthPrec.GetValue(0)));
}

void CUnitsDlg::refreshAngleSample() {
    if (m_angleType.GetCurSel() < 0 || m_anglePrec.GetCurSel() < 0) return;
    m_angleSample.SetWindowText(kx::frame::angleSample(
        m_baseAngle, clockwise(), m_lengthType.GetValue(m_data.lunits), m_lengthPrec.GetValue(m_data.luprec),
        m_angleType.GetValue(0), m_anglePrec.GetValue(0)));
}

void CUnitsDlg::OnUnitDir() {
    CUnitsDirDlg direction(m_angleType.GetValue(m_data.aunits), m_anglePrec.GetValue(m_data.auprec),
                           m_baseAngle, clockwise() ? 1 : 0, this);
    if (direction.DoModal() != IDOK) return;
    if (direction.pickRequested()) {
        pickBaseAngle();
    } else {
        m_baseAngle = direction.GetAngle();
        refreshAngleSample();
    }
}

// The angle of the line between two points of the drawing. The dialog is out of the way meanwhile; giving up
// either point leaves the angle as it is.
void CUnitsDlg::pickBaseAngle() {
    TavoInterfaces* host = getTavoInterfaces();
    TavoPointInput* input = host ? host->pointInput() : nullptr;
    if (!input) return;
    ShowWindow(false);
    OdGePoint3d from, to;
    const bool picked =
        input->getPoint(
            VORD_ResourceString("IDS_TAVO_UNITDIR_FROM", L"기준 각도의 첫 번째 점을 지정하십시오:").c_str(),
            nullptr, from) == Tavo::eOk &&
        input->getPoint(
            VORD_ResourceString("IDS_TAVO_UNITDIR_TO", L"기준 각도의 두 번째 점을 지정하십시오:").c_str(),
            &from, to) == Tavo::eOk;
    ShowWindow(true);
    if (!picked) return;
    if (from.x == to.x && from.y == to.y) {
        MessageDlg(this,
                   VORD_ResourceString("IDS_TAVO_UNITDIR_SAME_POINT",
                                       L"두 점이 같아 방향을 정할 수 없습니다. 기준 각도는 그대로 둡니다."),
                   GetWindowText().c_str(), 0x30);
        return;
    }
    const double angle = std::atan2(to.y - from.y, to.x - from.x);
    m_baseAngle = angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
    refreshAngleSample();
}

bool CUnitsDlg::confirmInsertionUnit(int lunits) {
    using tv::host::LengthUnits;
    const bool needsInches = lunits == static_cast<int>(LengthUnits::kEngineering) ||
                             lunits == static_cast<int>(LengthUnits::kArchitectural);
    if (!needsInches ||
        m_insertUnit.GetWindowText() == VORD_ResourceString("IDS_MGD_COMMON_UNIT_IC", L"인치").c_str())
        return true;
    return MessageDlg(
               this,
               VORD_ResourceString("IDS_ZEL_MANAGED_UI_UNITDLG_1",
                                   L"건축이나 공학 단위를 사용하려면 삽입되는 단위는 인치로 지정되어야\n "
                                   L"합니다.\n현재 선택된 값으로 변경하시겠습니까?"),
               GetWindowText().c_str(), 0x121) == IDOK;
}

int CUnitsDlg::Dlg2Data() {
    // A list without a selection (the drawing holds a value no entry stands for) keeps what the record has.
    const int lunits = m_lengthType.GetValue(m_data.lunits);
    const int luprec = m_lengthPrec.GetValue(m_data.luprec);
    const int aunits = m_angleType.GetValue(m_data.aunits);
    const int auprec = m_anglePrec.GetValue(m_data.auprec);
    if (!confirmInsertionUnit(lunits)) return 0;
    m_data.lunits = lunits;
    m_data.luprec = luprec;
    m_data.aunits = aunits;
    m_data.auprec = auprec;
    m_data.clockwise = clockwise();
    if (const int unit = m_insertUnit.GetCurSel(); unit >= 0)
        m_data.insunits = static_cast<int>(m_insertUnit.GetItemData(unit));
    m_data.angbase = m_baseAngle;
    return 1;
}
