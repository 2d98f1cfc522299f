#pragma once

#include "platform/toolkit/Button.h"
#include "platform/toolkit/ComboBox.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/DrawArea.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListBox.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/Page.h"
#include "platform/toolkit/SliderCtrl.h"
#include "platform/toolkit/Static.h"
#include "platform/toolkit/SwatchGrid.h"
#include "platform/toolkit/TabCtrl.h"
#include "platform/toolkit/TreeCtrl.h"

#include <map>

constexpr unsigned IDD_PROBE = 9101, IDD_PROBE_PAGE1 = 9102, IDD_PROBE_PAGE2 = 9103;

// Registers the templates below for the time of a test.
struct ProbeModule {
    ProbeModule();
    ~ProbeModule();
};

// Rows made up on demand; remembers which ones were asked for.
struct CountingRows : tv::ui::ListModel {
    explicit CountingRows(int rows) : count(rows) {}
    int rowCount() const override { return count; }
    tv::ui::ListCell cell(int row, int column) const override;
    int count;
    mutable int asked = 0, highest = -1;
};

struct FirstPage : CPage {
    explicit FirstPage(CWnd& parent) : CPage(IDD_PROBE_PAGE1, parent, "IDC_PAGE1") {}
    CEdit inside{*this, "IDC_INSIDE1"};
};

struct SecondPage : CPage {
    explicit SecondPage(CWnd& parent) : CPage(IDD_PROBE_PAGE2, parent, "IDC_PAGE2") {}
    CCheckBox inside{*this, "IDC_INSIDE2"};
};

// One control of every kind; every handler counts under its control's name.
class ProbeDlg : public CDialog {
  public:
    explicit ProbeDlg(CWnd* owner = nullptr);
    int OnInitDialog() override;
    void OnTimer(unsigned id) override { ticks.push_back(id); }
    bool OnHelpInfo() override { return ++fired["help"] > 0; }
    void OnSize(unsigned, int cx, int cy) override { size = {cx, cy}; }

    int total() const;
    std::map<std::string, int> fired;
    std::vector<unsigned> ticks;
    CSize size;
    std::function<void()> init;

    CStatic editLabel{*this, "IDC_EDIT_LABEL"};
    CEdit edit{*this, "IDC_EDIT"};
    CEdit memo{*this, "IDC_MEMO", true};
    CGroupBox group{*this, "IDC_GROUP"};
    CRadioButton red{*this, "IDC_RED"}, green{*this, "IDC_GREEN"}, blue{*this, "IDC_BLUE"};
    CCheckBox check{*this, "IDC_CHECK"};
    CComboBox combo{*this, "IDC_COMBO"};
    CComboBox entry{*this, "IDC_ENTRY", true};
    CListBox box{*this, "IDC_BOX"};
    CListCtrl list{*this, "IDC_LIST", true};
    CTreeCtrl tree{*this, "IDC_TREE"};
    CSliderCtrl slider{*this, "IDC_SLIDER"};
    CSwatchGrid swatches{*this, "IDC_SWATCHES", 4};
    CDrawArea area{*this, "IDC_AREA"};
    CImage image{*this, "IDC_IMAGE"};
    CTabCtrl tabs{*this, "IDC_TABS"};
    FirstPage page1{tabs};
    SecondPage page2{tabs};
    CCommandButton command{*this, "IDC_COMMAND"};
    CButton more{*this, "IDC_MORE"};
    CButton ok{*this, "IDOK"}, cancel{*this, "IDCANCEL"};
};
