#include "kxgui/controls/UnitCombos.h"

#include "kxgui/controls/PrecisionSamples.h"
#include "platform/host/units/AngleFormat.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/ResourceString.h"

using tv::host::AngleUnits;
using tv::host::LengthUnits;

void CCobxUnitBase::addEntry(std::wstring_view text, int value) {
    SetItemData(AddString(text), static_cast<std::uintptr_t>(value));
}

void CCobxUnitBase::SetComboBoxList() {
    const int kept = GetValue(-1);
    ResetContent();
    addEntries();
    if (kept >= 0) SelectValue(kept);
}

int CCobxUnitBase::GetValue(int otherwise) const {
    const int index = GetCurSel();
    return index < 0 ? otherwise : static_cast<int>(GetItemData(index));
}

bool CCobxUnitBase::SelectValue(int value) {
    const int index = entryFor(value);
    SetCurSel(index);
    if (index >= 0) SetItemData(index, static_cast<std::uintptr_t>(value));
    return index >= 0;
}

void CCobxUnitTypeBase::SelectType(int type) {
    SelectValue(type);
    refillChildren();
}

void CCobxUnitTypeBase::OnSelChange() {
    refillChildren();
    CCobxUnitBase::OnSelChange();
}

void CCobxUnitTypeBase::refillChildren() {
    for (CCobxPrecisionBase* child : m_children) {
        child->SetUnitType(GetValue(-1));
        child->SetComboBoxList();
    }
}

void CCobxLUnit::addEntries() {
    const auto add = [this](const VORD_ResourceString& text, LengthUnits unit) { addEntry(text, static_cast<int>(unit)); };
    add(VORD_ResourceString("IDS_TAVO_LUNITS_ARCHITECTURAL", L"건축"), LengthUnits::kArchitectural);
    add(VORD_ResourceString("IDS_TAVO_LUNITS_DECIMAL", L"십진"), LengthUnits::kDecimal);
    add(VORD_ResourceString("IDS_TAVO_LUNITS_ENGINEERING", L"공학"), LengthUnits::kEngineering);
    add(VORD_ResourceString("IDS_TAVO_LUNITS_FRACTIONAL", L"분수"), LengthUnits::kFractional);
    add(VORD_ResourceString("IDS_TAVO_LUNITS_SCIENTIFIC", L"과학"), LengthUnits::kScientific);
}

void CCobxLPrec::addEntries() {
    if (GetUnitType() < 0) return;
    for (int precision = 0; precision <= tv::host::kMaxPrecision; ++precision)
        addEntry(kx::controls::lengthPrecisionSample(GetUnitType(), precision), precision);
}

void CCobxAUnit::addEntries() {
    const auto add = [this](const VORD_ResourceString& text, AngleUnits unit) { addEntry(text, static_cast<int>(unit)); };
    add(VORD_ResourceString("IDS_TAVO_AUNITS_DEGREES", L"십진 도수"), AngleUnits::kDegrees);
    add(VORD_ResourceString("IDS_TAVO_AUNITS_DMS", L"도/분/초"), AngleUnits::kDegMinSec);
    add(VORD_ResourceString("IDS_TAVO_AUNITS_GRADS", L"그라드"), AngleUnits::kGrads);
    add(VORD_ResourceString("IDS_TAVO_AUNITS_RADIANS", L"라디안"), AngleUnits::kRadians);
    add(VORD_ResourceString("IDS_TAVO_AUNITS_SURVEYOR", L"측량사 단위"), AngleUnits::kSurveyor);
}

void CCobxAPrec::addEntries() {
    if (GetUnitType() < 0) return;
    for (const int precision : kx::controls::anglePrecisions(GetUnitType()))
        addEntry(kx::controls::anglePrecisionSample(GetUnitType(), precision), precision);
}

int CCobxAPrec::entryFor(int value) const {
    for (int i = 0; i < GetCount(); ++i)
        if (kx::controls::sameAnglePrecision(GetUnitType(), static_cast<int>(GetItemData(i)), value)) return i;
    return -1;
}
