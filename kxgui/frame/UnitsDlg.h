#pragma once

#include "kxgui/controls/UnitCombos.h"
#include "kxgui/frame/VORDBaseDlg.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/Static.h"

// A drawing's unit settings, exchanged with the host's command.
struct T_UNITS_D {
    int lunits; // length type, as LUNITS: 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional
    int luprec; // length precision
    int aunits; // angle type, as AUNITS: 0 degrees, 1 degrees/minutes/seconds, 2 grads, 3 radians, 4 surveyor's
    int auprec; // angle precision
    bool clockwise; // angles grow clockwise
    int insunits;   // the insertion unit's identifier, as kx::unit::getUnitList gives it
    double angbase; // base angle in radians

    void Init() { *this = T_UNITS_D{}; }
};

// The drawing units dialog. SetData before the run; GetData after one that ended with IDOK.
class KXGUI_EXPORT CUnitsDlg : public VORDRunDlg {
  public:
    // `angle`: the base angle in radians.
    CUnitsDlg(OdDbDatabasePtr& database, double angle, CWnd* parent);

    void SetData(const T_UNITS_D& data) { m_data = data; }
    void GetData(T_UNITS_D& data) const { data = m_data; }

    void SetText() override;
    void InitCtrl() override;
    void Data2Dlg() override;
    int Dlg2Data() override;

  private:
    void OnUnitDir();
    void pickBaseAngle();
    void fillInsertionUnits();
    void refreshLengthSample();
    void refreshAngleSample();
    void refreshSamples();
    bool confirmInsertionUnit(int lunits);
    bool clockwise() const { return m_clockwise.GetCheck() == CCheckBox::checked; }

    OdDbDatabasePtr m_database;
    T_UNITS_D m_data{};
    double m_baseAngle;

    CGroupBox m_lengthGroup{*this, "IDC_UNITS_LENGTH_GROUP"};
    CStatic m_lengthTypeLabel{*this, "IDC_UNITS_LTYPE_LABEL"};
    CCobxLUnit m_lengthType{*this, "IDC_UNITS_LTYPE"};
    CStatic m_lengthPrecLabel{*this, "IDC_UNITS_LPREC_LABEL"};
    CCobxLPrec m_lengthPrec{*this, "IDC_UNITS_LPREC"};
    CGroupBox m_angleGroup{*this, "IDC_UNITS_ANGLE_GROUP"};
    CStatic m_angleTypeLabel{*this, "IDC_UNITS_ATYPE_LABEL"};
    CCobxAUnit m_angleType{*this, "IDC_UNITS_ATYPE"};
    CStatic m_anglePrecLabel{*this, "IDC_UNITS_APREC_LABEL"};
    CCobxAPrec m_anglePrec{*this, "IDC_UNITS_APREC"};
    CCheckBox m_clockwise{*this, "IDC_UNITS_CLOCKWISE"};
    CGroupBox m_insertGroup{*this, "IDC_UNITS_INSERT_GROUP"};
    CStatic m_insertLabel{*this, "IDC_UNITS_INSERT_LABEL"};
    CComboBox m_insertUnit{*this, "IDC_UNITS_INSERT"};
    CGroupBox m_sampleGroup{*this, "IDC_UNITS_SAMPLE_GROUP"};
    CStatic m_lengthSample{*this, "IDC_UNITS_SAMPLE_LENGTH"};
    CStatic m_angleSample{*this, "IDC_UNITS_SAMPLE_ANGLE"};
    CButton m_direction{*this, "IDC_UNITS_DIRECTION"};
    CButton m_ok{*this, "IDOK"};
    CButton m_cancel{*this, "IDCANCEL"};
};
