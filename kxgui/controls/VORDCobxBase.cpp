#include "kxgui/controls/VORDCobxBase.h"

#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Unicode.h"

VORDCobxBase::VORDCobxBase(CWnd& parent, const char* name, bool editable) : CComboBox(parent, name, editable) {}

void VORDCobxBase::ScheduleUpdate() {
    updatePending = 1;
    SetUpdateTimer();
}

void VORDCobxBase::ScheduleSelect(const char* name, int index) {
    selectPending = 1;
    if (name)
        pendingSelectName = tv::text::fromUtf8(name);
    else
        pendingSelectIndex = index;
    SetUpdateTimer();
}

void VORDCobxBase::ScheduleEnabled(int enable) {
    if (!IsWindow()) return;
    enablePending = 1;
    pendingEnable = enable;
    SetUpdateTimer();
}

void VORDCobxBase::SetUpdateTimer() {
    if (timerId) KillTimer(timerId);
    timerId = 0;
    static const TvString cmdActive = L"CMDACTIVE";
    int active = 0;
    if (getSysvarManagerInterface(getTavoInterfaces())) tvedGetVar(cmdActive, active, nullptr);
    timerId = SetTimer(updateTimer, (active & automatedCommand) ? automatedUpdateDelay : updateDelay);
}

void VORDCobxBase::OnTimer(unsigned id) {
    if (id != updateTimer) return CComboBox::OnTimer(id);
    KillTimer(updateTimer);
    timerId = 0;
    if (selectPending) selectPendingEntry();
    if (enablePending) {
        EnableWindow(pendingEnable != 0);
        enablePending = 0;
    }
    if (updatePending) {
        refillSafely();
        updatePending = 0;
    }
}

void VORDCobxBase::selectPendingEntry() {
    if (!pendingSelectName.empty()) {
        for (int i = 0; i < GetCount(); ++i)
            if (GetLBText(i) == pendingSelectName) {
                SetCurSel(i);
                break;
            }
    } else {
        SetCurSel(pendingSelectIndex);
    }
    pendingSelectName.clear();
    pendingSelectIndex = -1;
    selectPending = 0;
}

void VORDCobxBase::refillSafely() {
    try {
        RefillList();
    } catch (...) {
        // The list stays as far as it got; the next drawing event refills it.
    }
}

void VORDCobxBase::OnWindowGone() {
    CComboBox::OnWindowGone();
    timerId = 0;
    pendingSelectName.clear();
    pendingSelectIndex = -1;
    updatePending = selectPending = enablePending = 0;
}

void VORDCobxBase::PostUpdate() { PostMessage(updateMessage); }

std::intptr_t VORDCobxBase::WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    if (message != updateMessage) return CComboBox::WindowProc(message, wParam, lParam);
    OnUpdate();
    return 0;
}

void VORDCobxBase::OnUpdate() { refillSafely(); }

int VORDCobxBase::SetCurSel(int index) {
    curSel = lastSel = index;
    if (CComboBox::GetCurSel() != index) CComboBox::SetCurSel(index);
    return index;
}

int VORDCobxBase::SelectString(int start, const wchar_t* text, bool ignoreCase) {
    if (!text) return -1;
    for (int from = start, turn = 0;; ++turn) {
        const int found = FindString(from, text);
        // The first search may come round to the entry it started after; a later one has been there.
        if (found < 0 || found < from || (found == from && turn > 0)) return -1;
        const std::wstring entry = GetLBText(found);
        if (ignoreCase ? tv::text::equalNoCase(entry, text) : entry == text) return SetCurSel(found);
        from = found;
    }
}

OdDbDatabasePtr VORDCobxBase::checkCurrentDatabase() const { return tvedWorkingDatabase(); }

OdDbDatabasePtr VORDCobxBase::prepareUpdateList() {
    ResetContent();
    if (!IsWindow()) return nullptr;
    const OdDbDatabasePtr database = checkCurrentDatabase();
    if (database && (fontScale() != 1.0 || fontBold())) SetFontScale(1.0); // the standard font of all controls
    return database;
}
