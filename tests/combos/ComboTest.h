#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ModuleChain.h"
#include "tests/support/HeadlessTest.h"

#include <vector>

constexpr unsigned comboTestTemplate = 9301;
inline constexpr tv::ui::DialogTemplate comboTestTemplates[] = {
    {comboTestTemplate, "IDD_TEST_COMBOS", {100, 50}, false}};

template <class Combo>
struct OneComboDlg : CDialog {
    OneComboDlg() : CDialog(comboTestTemplate, nullptr) {}
    Combo combo{*this, "IDC_COMBO"};
};

// A desk with a new drawing, and a dialog with the list under test in it.
struct ComboTest : HeadlessTest {
    ComboTest() {
        tv::ui::ModuleChain::instance().add({"combos", false, comboTestTemplates});
        host.documentManager()->newDocument();
    }
    ~ComboTest() override { tv::ui::ModuleChain::instance().remove("combos"); }

    OdDbDatabasePtr database() { return tvedWorkingDatabase(); }
    OdDbObjectId addLayer(std::wstring_view name) { return database()->layers(OdDb::kForWrite)->add(name); }

    template <class Combo>
    void run(const std::function<void(Combo&, tv::ui::WindowUser&)>& does) {
        OneComboDlg<Combo> dialog;
        user.expect<OneComboDlg<Combo>>([&](auto& u) {
            does(dialog.combo, u);
            if (dialog.running()) u.closeBox();
        });
        dialog.DoModal();
    }
    template <class Combo>
    void refill(Combo& combo) {
        combo.ScheduleUpdate();
        toolkit.advance(std::chrono::milliseconds(50));
    }
    static std::vector<std::wstring> texts(const CComboBox& combo) { return combo.items().texts(); }
    std::wstring variable(const wchar_t* name) {
        OdString text;
        host.sysvarManager()->getText(name, text, database());
        return text.wstr();
    }
};
