#include "kxgui/controls/LineWeightCombo.h"

#include "kxgui/frame/LineWeightNames.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>

using tv::dwg::Value;

namespace {

std::uintptr_t dataOf(std::int64_t weight) { return static_cast<std::uint16_t>(weight); }

} // namespace

void CCobxLineWeight::SetType(ControlType type) {
    if (GetType() == type) return;
    CCobxPropertyBase::SetType(type);
    if (IsWindow()) ScheduleUpdate();
}

void CCobxLineWeight::Fill(const OdDbDatabasePtr&) {
    constexpr double hairline = 0.01; // the thinnest width is drawn as a line, too
    const bool inches = kx::frame::lineWeightsInInches();
    const bool ofLayer = GetType() == typeNoLayerBlock || GetType() == typeLayer;
    std::vector<tv::ui::ListItem> items;
    for (const OdDb::LineWeight weight : kx::frame::lineWeights(kx::frame::LineWeightOffer::withAll)) {
        if (ofLayer && (weight == OdDb::kLnWtByLayer || weight == OdDb::kLnWtByBlock)) continue;
        tv::ui::ListItem item{kx::frame::lineWeightText(weight, inches), dataOf(weight), nullptr};
        if (weight >= OdDb::kLnWt000)
            item.picture = tv::ui::linePicture(std::max(hairline, kx::frame::millimetresOf(weight)));
        items.push_back(std::move(item));
    }
    SetItems(std::move(items));
}

OdDb::LineWeight CCobxLineWeight::GetLineWeight(OdDb::LineWeight otherwise) const {
    const auto value = GetValue();
    const auto* weight = value ? std::get_if<std::int64_t>(&*value) : nullptr;
    return weight ? static_cast<OdDb::LineWeight>(*weight) : otherwise;
}

int CCobxLineWeight::EntryOf(const Value& value) {
    const auto* weight = std::get_if<std::int64_t>(&value);
    return weight ? FindItemData(dataOf(*weight)) : -1;
}

std::optional<Value> CCobxLineWeight::ValueOf(int index) const {
    if (index < 0 || index >= GetCount()) return std::nullopt;
    return Value(std::int64_t{static_cast<std::int16_t>(GetItemData(index))});
}

std::wstring CCobxLineWeight::TextOf(const Value& value) const {
    const auto* weight = std::get_if<std::int64_t>(&value);
    return weight ? kx::frame::lineWeightText(static_cast<OdDb::LineWeight>(*weight),
                                              kx::frame::lineWeightsInInches())
                  : std::wstring();
}

std::wstring CCobxLineWeight::UndoName() const {
    return VORD_ResourceString("IDS_TAVO_COBX_UNDO_LINEWEIGHT", L"선가중치 변경").c_str();
}
