#include "kxgui/layers/LayerFilterRows.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/LineWeightNames.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLinetypeTable.h"
#include "platform/text/Collation.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>

namespace kx::layers {
namespace {

constexpr std::wstring_view kNot = L"!=";

bool isSimple(std::wstring_view cell) { return cell.find(L'=') == std::wstring_view::npos; }

// A cell without the sign in front that turns it into its contrary.
std::wstring_view withoutNot(std::wstring_view& sign, std::wstring_view cell) {
    sign = cell.starts_with(kNot) ? cell.substr(0, kNot.size()) : std::wstring_view();
    return cell.substr(sign.size());
}

std::optional<OdCmColor> colorOf(std::wstring_view cell) {
    std::wstring_view sign;
    const std::wstring_view value = withoutNot(sign, cell);
    if (const auto index = kx::frame::indexedColorOf(value, false)) return index;
    int parts[3] = {};
    std::size_t begin = 0;
    for (int& part : parts) {
        const std::size_t end = std::min(value.find(L',', begin), value.size());
        const auto number = tv::text::parseInt(value.substr(std::min(begin, value.size()), end - begin));
        if (!number || *number < 0 || *number > 255) return std::nullopt;
        part = static_cast<int>(*number);
        begin = end + 1;
    }
    if (begin <= value.size()) return std::nullopt;
    const auto byte = [](int part) { return static_cast<std::uint8_t>(part); };
    return OdCmColor::byRgb(byte(parts[0]), byte(parts[1]), byte(parts[2]));
}

std::wstring colorValue(const OdCmColor& color) {
    if (!color.isByColor()) return tv::text::printInt(color.colorIndex());
    return tv::text::format(L"%d,%d,%d", int{color.red()}, int{color.green()}, int{color.blue()});
}

// As a person reads and enters it, out of what the filter says.
std::wstring shown(FilterProperty property, const std::wstring& cell) {
    property = filterKind(property);
    std::wstring_view sign;
    const std::wstring_view value = withoutNot(sign, cell);
    if (!isSimple(value)) return cell;
    const auto state = filterStateOf(value);
    if (state && (isFilterState(property) || property == FilterProperty::xref)) return filterStateText(*state);
    if (property == FilterProperty::color)
        if (const auto color = kx::frame::indexedColorOf(value, false))
            return std::wstring(sign) + kx::frame::colorText(*color);
    if (property == FilterProperty::lineWeight && tv::text::equalNoCase(value, L"Default"))
        return std::wstring(sign) + kx::frame::lineWeightText(OdDb::kLnWtByLwDefault, false);
    return cell;
}

// And back.
std::wstring meant(FilterProperty property, const std::wstring& text) {
    property = filterKind(property);
    std::wstring_view sign;
    const std::wstring_view value = withoutNot(sign, text);
    if (isFilterState(property) || property == FilterProperty::xref)
        for (const bool state : {true, false})
            if (tv::text::equalNoCase(value, filterStateText(state)))
                return std::wstring(sign) + (state ? L"True" : L"False");
    if (property == FilterProperty::color)
        if (const auto color = kx::frame::indexedColorOf(value, false))
            return std::wstring(sign) + colorValue(*color);
    if (property == FilterProperty::lineWeight &&
        tv::text::equalNoCase(value, kx::frame::lineWeightText(OdDb::kLnWtByLwDefault, false)))
        return std::wstring(sign) + L"Default";
    return text;
}

void addSorted(std::vector<std::wstring>& to, std::vector<std::wstring> names) {
    std::ranges::sort(names, tv::text::Collator({.digitsAsNumbers = true, .ignoreCase = true}));
    to.insert(to.end(), names.begin(), names.end());
}

template <class Table>
std::vector<std::wstring> namesIn(OdDbObjectId table, const auto& wanted) {
    std::vector<std::wstring> names;
    if (const auto opened = table.open<Table>())
        opened->forEach([&](OdDbObjectId id) {
            if (wanted(id)) names.push_back(tv::text::Wildcards::literal(opened->nameOf(id).view()));
        });
    return names;
}

std::vector<std::wstring> plotStyles(const OdDbDatabase& database) {
    std::vector<std::wstring> names;
    if (const auto all = database.getPlotStyleNameDictionaryId().open<OdDbDictionary>())
        for (auto walk = all->newIterator(); !walk->done(); walk->next())
            names.push_back(tv::text::Wildcards::literal(walk->name().view()));
    return names;
}

} // namespace

std::wstring filterStateText(bool state) {
    return state ? VORD_ResourceString("IDS_TAVO_LAYERFILTER_YES", L"예").c_str()
                 : VORD_ResourceString("IDS_TAVO_LAYERFILTER_NO", L"아니오").c_str();
}

std::wstring LayerFilterRows::title(FilterProperty property) {
    using enum FilterProperty;
    switch (property) {
    case current:
        return VORD_ResourceString("IDS_TAVO_LAYERFILTER_CURRENT", L"현재").c_str();
    case used:
        return VORD_ResourceString("IDS_TAVO_LAYERFILTER_USED", L"사용 중").c_str();
    case vpOverrides:
        return VORD_ResourceString("IDS_TAVO_LAYERFILTER_OVERRIDES", L"VP 재지정").c_str();
    case xref:
        return VORD_ResourceString("IDS_TAVO_LAYERFILTER_XREFS", L"외부 참조").c_str();
    case name:
        return layerColumnText(LayerColumn::name);
    case on:
        return layerColumnText(LayerColumn::on);
    case frozen:
        return layerColumnText(LayerColumn::freeze);
    case locked:
        return layerColumnText(LayerColumn::lock);
    case color:
        return layerColumnText(LayerColumn::color);
    case linetype:
        return layerColumnText(LayerColumn::linetype);
    case lineWeight:
        return layerColumnText(LayerColumn::lineweight);
    case transparency:
        return layerColumnText(LayerColumn::transparency);
    case plotStyle:
        return layerColumnText(LayerColumn::plotStyle);
    case plottable:
        return layerColumnText(LayerColumn::plot);
    case newVpFrozen:
        return layerColumnText(LayerColumn::newVpFreeze);
    case vpFrozen:
        return layerColumnText(LayerColumn::vpFreeze);
    case vpColor:
        return layerColumnText(LayerColumn::vpColor);
    case vpLinetype:
        return layerColumnText(LayerColumn::vpLinetype);
    case vpLineWeight:
        return layerColumnText(LayerColumn::vpLineweight);
    case vpTransparency:
        return layerColumnText(LayerColumn::vpTransparency);
    case vpPlotStyle:
        return layerColumnText(LayerColumn::vpPlotStyle);
    case description:
        return layerColumnText(LayerColumn::description);
    }
    return {};
}

void LayerFilterRows::setRows(std::vector<FilterRow> rows) {
    m_rows.clear();
    for (FilterRow& row : rows)
        m_rows.push_back({std::move(row), m_nextKey++});
    completeRows();
}

std::vector<FilterRow> LayerFilterRows::rows() const {
    std::vector<FilterRow> out;
    for (const Row& row : m_rows)
        if (!row.conditions.empty()) out.push_back(row.conditions);
    return out;
}

bool LayerFilterRows::isEmptyRow(int row) const {
    return row < 0 || row >= rowCount() || m_rows[static_cast<std::size_t>(row)].conditions.empty();
}

bool LayerFilterRows::removeRow(int row) {
    if (row < 0 || row + 1 >= rowCount()) return false;
    m_rows.erase(m_rows.begin() + row);
    return true;
}

bool LayerFilterRows::completeRows() {
    if (!m_rows.empty() && m_rows.back().conditions.empty()) return false;
    m_rows.push_back({{}, m_nextKey++});
    return true;
}

std::wstring LayerFilterRows::text(int row, int column) const {
    if (!valid(row, column)) return {};
    const FilterProperty property = propertyOf(column);
    return shown(property, filterCellText(m_rows[static_cast<std::size_t>(row)].conditions, property));
}

tv::ui::ListCell LayerFilterRows::cell(int row, int column) const {
    tv::ui::ListCell cell;
    if (!valid(row, column)) return cell;
    cell.text = text(row, column);
    cell.editable = true;
    if (filterKind(propertyOf(column)) == FilterProperty::color)
        if (const auto color =
                colorOf(filterCellText(m_rows[static_cast<std::size_t>(row)].conditions, propertyOf(column))))
            cell.picture = tv::ui::colorPicture(kx::frame::swatchRgb(color->rgb()));
    return cell;
}

CInPlaceCtrlModel::Editor LayerFilterRows::editor(int row, int column) const {
    if (!valid(row, column)) return Editor::none;
    const FilterProperty property = filterKind(propertyOf(column));
    if (isFilterState(property)) return Editor::list;
    switch (property) {
    case FilterProperty::color:
        return Editor::command;
    case FilterProperty::linetype:
    case FilterProperty::lineWeight:
    case FilterProperty::plotStyle:
    case FilterProperty::xref:
        return Editor::combo;
    default:
        return Editor::edit;
    }
}

std::vector<tv::ui::ListItem> LayerFilterRows::choices(int row, int column) const {
    if (!valid(row, column)) return {};
    const FilterProperty property = filterKind(propertyOf(column));
    std::vector<std::wstring> texts{L""};
    const auto everything = [](OdDbObjectId) { return true; };
    const auto reference = [](OdDbObjectId id) {
        const auto block = id.open<OdDbBlockTableRecord>();
        return block && block->isFromExternalReference();
    };
    if (isFilterState(property) || property == FilterProperty::xref)
        for (const bool state : {true, false})
            texts.push_back(filterStateText(state));
    switch (property) {
    case FilterProperty::color:
        for (int index = 1; index <= 7; ++index)
            texts.push_back(kx::frame::colorText(OdCmColor::byIndex(index)));
        if (const std::wstring present = text(row, column); std::ranges::find(texts, present) == texts.end())
            texts.push_back(present);
        texts.emplace_back(VORD_ResourceString("IDC_TBMNU_497", L"Select Color..."));
        break;
    case FilterProperty::linetype:
        if (m_database)
            addSorted(texts, namesIn<OdDbLinetypeTable>(m_database->getLinetypeTableId(), everything));
        break;
    case FilterProperty::lineWeight:
        texts.push_back(kx::frame::lineWeightText(OdDb::kLnWtByLwDefault, false));
        for (const OdDb::LineWeight weight : kx::frame::lineWeights(kx::frame::LineWeightOffer::widths))
            texts.push_back(tv::text::printReal(kx::frame::millimetresOf(weight), 2));
        break;
    case FilterProperty::plotStyle:
        if (m_database) addSorted(texts, plotStyles(*m_database));
        break;
    case FilterProperty::xref:
        if (m_database) addSorted(texts, namesIn<OdDbBlockTable>(m_database->getBlockTableId(), reference));
        break;
    default:
        break;
    }
    std::vector<tv::ui::ListItem> items;
    for (std::wstring& one : texts) {
        tv::ui::Picture picture;
        if (property == FilterProperty::color)
            if (const auto color = kx::frame::indexedColorOf(one, false))
                picture = tv::ui::colorPicture(kx::frame::swatchRgb(color->rgb()));
        items.push_back({std::move(one), 0, std::move(picture)});
    }
    return items;
}

InPlaceAnswer LayerFilterRows::setValue(int row, int column, const std::wstring& text) {
    if (!valid(row, column)) return {};
    const FilterProperty property = propertyOf(column);
    if (setFilterCell(m_rows[static_cast<std::size_t>(row)].conditions, property, meant(property, text)))
        return {};
    return {tv::text::format(VORD_ResourceString("IDS_TAVO_LAYERFILTER_BAD_CELL",
                                                 L"\"%s\"은(는) %s 조건으로 이해할 수 없습니다."),
                             text, title(property)),
            {}};
}

InPlaceAnswer LayerFilterRows::runCommand(int row, int column) {
    if (!valid(row, column) || !chooseColor || filterKind(propertyOf(column)) != FilterProperty::color)
        return {};
    FilterRow& conditions = m_rows[static_cast<std::size_t>(row)].conditions;
    const auto present = colorOf(filterCellText(conditions, propertyOf(column)));
    if (const auto chosen = chooseColor(present.value_or(OdCmColor::byIndex(7))))
        setFilterCell(conditions, propertyOf(column), colorValue(*chosen));
    return {};
}

std::uintptr_t LayerFilterRows::rowKey(int row) const {
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)].key : 0;
}

int LayerFilterRows::rowOfKey(std::uintptr_t key) const {
    const auto found = std::ranges::find(m_rows, key, &Row::key);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

} // namespace kx::layers
