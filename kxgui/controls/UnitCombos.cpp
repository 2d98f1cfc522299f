#include "kxgui/controls/UnitCombos.h"

#include "kxgui/controls/PrecisionSamples.h"
#include "platform/host/units/AngleFormat.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/ResourceString.h"

using tv::host::AngleUnits;
using tv::host::LengthUnits;

namespace {

tv::ui::ListItem entry(std::wstring text, int value) {
    return {std::move(text), static_cast<std::uintptr_t>(value), {}};
}

template <class Type>
tv::ui::ListItem typeEntry(const VORD_ResourceString& text, Type type) {
    return entry(text.c_str(), static_cast<int>(type));
}

} // namespace

void CCobxUnitBase::SetComboBoxList() {
    const int kept = GetValue(-1);
    SetItems(entries());
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

std::vector<tv::ui::ListItem> CCobxLUnit::entries() const {
    return {
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_ARCHITECTURAL", L"건축"), LengthUnits::kArchitectural),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_DECIMAL", L"십진"), LengthUnits::kDecimal),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_ENGINEERING", L"공학"), LengthUnits::kEngineering),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_FRACTIONAL", L"분수"), LengthUnits::kFractional),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_SCIENTIFIC", L"과학"), LengthUnits::kScientific)};
}

std::vector<tv::ui::ListItem> CCobxLPrec::entries() const {
    std::vector<tv::ui::ListItem> items;
    if (GetUnitType() < 0) return items;
    items.reserve(tv::host::kMaxPrecision + 1);
    for (int precision = 0; precision <= tv::host::kMaxPrecision; ++precision)
        items.push_back(entry(kx::controls::lengthPrecisionSample(GetUnitType(), precision), precision));
    return items;
}

std::vector<tv::ui::ListItem> CCobxAUnit::entries() const {
    return {typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_DEGREES", L"십진 도수"), AngleUnits::kDegrees),
            typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_DMS", L"도/분/초"), AngleUnits::kDegMinSec),
            typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_GRADS", L"그라드"), AngleUnits::kGrads),
            typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_RADIANS", L"라디안"), AngleUnits::kRadians),
            typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_SURVEYOR", L"측량사 단위"), AngleUnits::kSurveyor)};
}

std::vector<tv::ui::ListItem> CCobxAPrec::entries() const {
    std::vector<tv::ui::ListItem> items;
    if (GetUnitType() < 0) return items;
    items.reserve(tv::host::kMaxPrecision + 1);
    for (const int precision : kx::controls::anglePrecisions(GetUnitType()))
        items.push_back(entry(kx::controls::anglePrecisionSample(GetUnitType(), precision), precision));
    return items;
}

int CCobxAPrec::entryFor(int value) const {
    for (int i = 0; i < GetCount(); ++i)
        if (kx::controls::sameAnglePrecision(GetUnitType(), static_cast<int>(GetItemData(i)), value)) return i;
    return -1;
}
