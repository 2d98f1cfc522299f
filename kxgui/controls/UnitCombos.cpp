#include "kxgui/controls/UnitCombos.h"

#include "kxgui/controls/PrecisionSamples.h"
#include "platform/host/units/AngleFormat.h"
#include "platform/host/units/LengthFormat.h"
#include "platform/text/ResourceString.h"

#include <map>

using tv::host::AngleUnits;
using tv::host::LengthUnits;

namespace {

tv::ui::ListItem entry(std::wstring text, int value) {
    return {std::move(text), static_cast<std::uintptr_t>(value), {}};
}

// The list made for a unit type when it is first asked for: the dialogs of a run all show the same one.
template <class Make>
tv::ui::SharedItems madeOnce(std::map<int, tv::ui::SharedItems>& made, int type, const Make& make) {
    tv::ui::SharedItems& items = made[type];
    if (!items) items = std::make_shared<const std::vector<tv::ui::ListItem>>(make());
    return items;
}

template <class... Entries>
tv::ui::SharedItems listOf(Entries&&... entries) {
    return std::make_shared<const std::vector<tv::ui::ListItem>>(
        std::vector<tv::ui::ListItem>{std::move(entries)...});
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

tv::ui::SharedItems CCobxLUnit::entries() const {
    return listOf(
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_ARCHITECTURAL", L"건축"), LengthUnits::kArchitectural),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_DECIMAL", L"십진"), LengthUnits::kDecimal),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_ENGINEERING", L"공학"), LengthUnits::kEngineering),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_FRACTIONAL", L"분수"), LengthUnits::kFractional),
        typeEntry(VORD_ResourceString("IDS_TAVO_LUNITS_SCIENTIFIC", L"과학"), LengthUnits::kScientific));
}

tv::ui::SharedItems CCobxLPrec::entries() const {
    if (GetUnitType() < 0) return nullptr;
    static std::map<int, tv::ui::SharedItems> made;
    return madeOnce(made, GetUnitType(), [type = GetUnitType()] {
        std::vector<tv::ui::ListItem> items;
        for (int precision = 0; precision <= tv::host::kMaxPrecision; ++precision)
            items.push_back(entry(kx::controls::lengthPrecisionSample(type, precision), precision));
        return items;
    });
}

tv::ui::SharedItems CCobxAUnit::entries() const {
    return listOf(
        typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_DEGREES", L"십진 도수"), AngleUnits::kDegrees),
        typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_DMS", L"도/분/초"), AngleUnits::kDegMinSec),
        typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_GRADS", L"그라드"), AngleUnits::kGrads),
        typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_RADIANS", L"라디안"), AngleUnits::kRadians),
        typeEntry(VORD_ResourceString("IDS_TAVO_AUNITS_SURVEYOR", L"측량사 단위"), AngleUnits::kSurveyor));
}

tv::ui::SharedItems CCobxAPrec::entries() const {
    if (GetUnitType() < 0) return nullptr;
    static std::map<int, tv::ui::SharedItems> made;
    return madeOnce(made, GetUnitType(), [type = GetUnitType()] {
        std::vector<tv::ui::ListItem> items;
        for (const int precision : kx::controls::anglePrecisions(type))
            items.push_back(entry(kx::controls::anglePrecisionSample(type, precision), precision));
        return items;
    });
}

int CCobxAPrec::entryFor(int value) const {
    for (int i = 0; i < GetCount(); ++i)
        if (kx::controls::sameAnglePrecision(GetUnitType(), static_cast<int>(GetItemData(i)), value)) return i;
    return -1;
}
