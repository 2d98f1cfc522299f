#pragma once

#include "kxgui/frame/BaseAngle.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/Static.h"

// Chooses a drawing's base angle: a compass direction, an entered angle, or a pick on the screen.
class KXGUI_EXPORT CUnitsDirDlg : public VORDRunDlg {
  public:
    // `angle` in radians counter-clockwise from east; angleType and anglePrecision as AUNITS and AUPREC.
    CUnitsDirDlg(int angleType, int anglePrecision, double angle, int clockwise, CWnd* parent);

    // The chosen base angle in radians.
    double GetAngle() const { return m_angle; }
    // The dialog ended because the angle is to be picked in the drawing; GetAngle is what it was before.
    bool pickRequested() const { return m_pick; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    void select(kx::frame::Compass compass);
    void compassChanged();
    void enableEntry();
    bool gatherEntry();
    CRadioButton& radio(kx::frame::Compass compass);

    int m_angleType, m_anglePrecision;
    double m_angle;
    bool m_clockwise;
    kx::frame::Compass m_radio = kx::frame::Compass::east;
    bool m_pick = false;
    std::wstring m_shownEntry; // an entry nobody changed leaves the angle as exact as it was

    CGroupBox m_group{*this, "IDC_UNITDIR_GROUP"};
    CRadioButton m_east{*this, "IDC_UNITDIR_EAST"};
    CRadioButton m_north{*this, "IDC_UNITDIR_NORTH"};
    CRadioButton m_west{*this, "IDC_UNITDIR_WEST"};
    CRadioButton m_south{*this, "IDC_UNITDIR_SOUTH"};
    CRadioButton m_other{*this, "IDC_UNITDIR_OTHER"};
    CStatic m_chooseLabel{*this, "IDC_UNITDIR_CHOOSE_LABEL"};
    CStatic m_angleLabel{*this, "IDC_UNITDIR_ANGLE_LABEL"};
    CEdit m_angleEdit{*this, "IDC_UNITDIR_ANGLE"};
    CButton m_pickButton{*this, "IDC_UNITDIR_PICK"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
