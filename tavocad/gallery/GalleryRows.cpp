#include "tavocad/gallery/GalleryRows.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/LineWeightNames.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/toolkit/Pictures.h"

#include <cmath>

using tv::ui::ListCell;
using tv::ui::ListItem;

namespace {

constexpr int standardColors = 7;
constexpr std::array lineWeights{OdDb::kLnWt013, OdDb::kLnWt025, OdDb::kLnWt035,
                                 OdDb::kLnWt050, OdDb::kLnWt100, OdDb::kLnWt200};

std::wstring colorName(int index) { return kx::frame::colorText(OdCmColor::byIndex(index)); }

tv::ui::Picture colorSquare(int index) {
    return tv::ui::colorPicture(kx::frame::swatchRgb(OdCmColor::byIndex(index).rgb()));
}

std::wstring weightText(OdDb::LineWeight weight) {
    return kx::frame::lineWeightText(weight, kx::frame::lineWeightsInInches());
}

tv::ui::Picture weightLine(OdDb::LineWeight weight) {
    return tv::ui::linePicture(kx::frame::millimetresOf(weight));
}

} // namespace

GalleryRows::Row GalleryRows::row(int number) const {
    if (const auto changed = m_changed.find(number); changed != m_changed.end()) return changed->second;
    const auto n = static_cast<std::size_t>(number);
    Row made;
    made.name = tv::text::format(VORD_ResourceString("IDS_TAVO_GALLERY_ROW", L"벽 %d"), number + 1);
    made.color = number % standardColors + 1;
    made.weight = lineWeights[n % lineWeights.size()];
    made.on = number % 3 != 2;
    made.checked = number % 4 == 0;
    if (!m_fonts.empty()) made.font = m_fonts[n % m_fonts.size()];
    made.length = 120.5 + 37.25 * (number % 1000);
    return made;
}

std::wstring GalleryRows::text(int number, int column) const {
    const Row shown = row(number);
    switch (column) {
    case kName:
        return shown.name;
    case kColor:
        return colorName(shown.color);
    case kWeight:
        return weightText(shown.weight);
    case kState:
        return states()[shown.on ? 0 : 1];
    case kFont:
        return shown.font.name;
    case kFontStyle:
        return shown.font.style;
    case kLength:
        return tv::text::printReal(shown.length);
    case kRemark:
        return shown.remark;
    default:
        return {};
    }
}

ListCell GalleryRows::cell(int number, int column) const {
    ListCell shown;
    shown.text = text(number, column);
    const Row from = row(number);
    if (column == kName) shown.checked = from.checked ? 1 : 0;
    if (column == kColor) shown.picture = colorSquare(from.color);
    if (column == kWeight) shown.picture = weightLine(from.weight);
    shown.bold = m_changed.contains(number);
    return shown;
}

bool GalleryRows::set(int number, int column, const std::wstring& text) {
    if (number < 0 || number >= m_count) return false;
    Row changed = row(number);
    switch (column) {
    case kName:
        if (text.empty()) return false;
        changed.name = text;
        break;
    case kColor: {
        const auto color = kx::frame::indexedColorOf(text, false);
        if (!color) return false;
        changed.color = color->colorIndex();
        break;
    }
    case kWeight: {
        bool known = false;
        for (const OdDb::LineWeight weight : lineWeights) {
            if (weightText(weight) != text) continue;
            changed.weight = weight;
            known = true;
        }
        if (!known) return false;
        break;
    }
    case kState: {
        const auto [on, off] = states();
        if (text != on && text != off) return false;
        changed.on = text == on;
        break;
    }
    case kFont:
        if (text != changed.font.name) changed.font = {text, {}}; // the styles are those of the font
        break;
    case kFontStyle:
        changed.font.style = text;
        break;
    case kLength: {
        const auto length = tv::text::parseReal(text);
        if (!length || !std::isfinite(*length) || *length < 0.0) return false;
        changed.length = *length;
        break;
    }
    case kRemark:
        changed.remark = text;
        break;
    default:
        return false;
    }
    m_changed[number] = std::move(changed);
    return true;
}

void GalleryRows::check(int number, bool checked) {
    if (number < 0 || number >= m_count) return;
    Row changed = row(number);
    changed.checked = checked;
    m_changed[number] = std::move(changed);
}

std::vector<ListItem> GalleryRows::colors() {
    std::vector<ListItem> items;
    for (int index = 1; index <= standardColors; ++index)
        items.push_back({colorName(index), static_cast<std::uintptr_t>(index), colorSquare(index)});
    return items;
}

std::vector<ListItem> GalleryRows::weights() {
    std::vector<ListItem> items;
    for (const OdDb::LineWeight weight : lineWeights)
        items.push_back({weightText(weight), static_cast<std::uintptr_t>(weight), weightLine(weight)});
    return items;
}

std::array<std::wstring, 2> GalleryRows::states() {
    return {VORD_ResourceString("IDS_TAVO_GALLERY_ON", L"켜짐").c_str(),
            VORD_ResourceString("IDS_TAVO_GALLERY_OFF", L"꺼짐").c_str()};
}
