// A modal run of the units dialog without pixels, from construction to the end, beside constructing its
// controls alone.
#include "bench/Ratio.h"
#include "kxgui/controls/UnitCombos.h"
#include "kxgui/frame/Templates.h"
#include "kxgui/frame/UnitsDlg.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"

namespace {

// Presses OK in whatever comes up.
struct PressOk : tv::ui::Driver {
    bool step(tv::ui::Waiting& waiting) override {
        return static_cast<bool>(static_cast<CButton*>(waiting.dialog->GetDlgItem("IDOK"))->userClick());
    }
    void lost(tv::ui::Waiting&) override {}
};

// The units dialog's controls, by kind and name, without anything done to them.
struct ControlsAlone : CDialog {
    ControlsAlone() : CDialog(IDD_UNITS, nullptr) {}
    CGroupBox lengthGroup{*this, "IDC_UNITS_LENGTH_GROUP"};
    CStatic lengthTypeLabel{*this, "IDC_UNITS_LTYPE_LABEL"};
    CCobxLUnit lengthType{*this, "IDC_UNITS_LTYPE"};
    CStatic lengthPrecLabel{*this, "IDC_UNITS_LPREC_LABEL"};
    CCobxLPrec lengthPrec{*this, "IDC_UNITS_LPREC"};
    CGroupBox angleGroup{*this, "IDC_UNITS_ANGLE_GROUP"};
    CStatic angleTypeLabel{*this, "IDC_UNITS_ATYPE_LABEL"};
    CCobxAUnit angleType{*this, "IDC_UNITS_ATYPE"};
    CStatic anglePrecLabel{*this, "IDC_UNITS_APREC_LABEL"};
    CCobxAPrec anglePrec{*this, "IDC_UNITS_APREC"};
    CCheckBox clockwise{*this, "IDC_UNITS_CLOCKWISE"};
    CGroupBox insertGroup{*this, "IDC_UNITS_INSERT_GROUP"};
    CStatic insertLabel{*this, "IDC_UNITS_INSERT_LABEL"};
    CComboBox insertUnit{*this, "IDC_UNITS_INSERT"};
    CGroupBox sampleGroup{*this, "IDC_UNITS_SAMPLE_GROUP"};
    CStatic lengthSample{*this, "IDC_UNITS_SAMPLE_LENGTH"};
    CStatic angleSample{*this, "IDC_UNITS_SAMPLE_ANGLE"};
    CButton direction{*this, "IDC_UNITS_DIRECTION"};
    CButton ok{*this, "IDOK"};
    CButton cancel{*this, "IDCANCEL"};
};

void constructControls(benchmark::State& state) {
    for (auto _ : state) {
        ControlsAlone controls;
        benchmark::DoNotOptimize(controls.children().size());
    }
}

void runModally(benchmark::State& state) {
    tv::ui::HeadlessToolkit toolkit;
    PressOk ok;
    toolkit.setDriver(&ok);
    OdDbDatabasePtr none;
    for (auto _ : state) {
        T_UNITS_D data{2, 4, 0, 2, false, 4, 0.0};
        CUnitsDlg dialog(none, 0.0, nullptr);
        dialog.SetData(data);
        if (dialog.DoModal() != IDOK) state.SkipWithError("the dialog did not end with OK");
        dialog.GetData(data);
        benchmark::DoNotOptimize(data.lunits);
    }
}

} // namespace

int main(int argc, char** argv) {
    return bench::run(argc, argv, {{"constructControls", constructControls}, {"runModally", runModally}},
                      {{"runModally", "constructControls", 5}});
}
