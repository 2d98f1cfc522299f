#include "kxgui/layers/LayerCellItems.h"

#include "kxgui/frame/ColorNames.h"
#include "kxgui/frame/LineWeightNames.h"
#include "kxgui/layers/LayerIcons.h"
#include "kxgui/layers/LayerNameRules.h"
#include "kxgui/layers/LayerRecord.h"
#include "kxgui/layers/LayerTexts.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLinetypeTable.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/Format.h"
#include "platform/text/Numbers.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>

using Editor = CInPlaceCtrlModel::Editor;
using kx::layers::LayerVariant;
using tv::ui::ListCell;

namespace {

// Says of a value that only the active viewport has, so that it is more than bold.
void markOverride(ListCell& cell, const std::wstring& ofLayer) {
    cell.bold = true;
    cell.hint = tv::text::format(
        VORD_ResourceString("IDS_TAVO_LAYERCELL_OVERRIDE", L"이 뷰포트에서만 %s입니다. 도면층의 값: %s"),
        cell.text, ofLayer);
}

constexpr int kStandardColors = 7; // have names

std::wstring percent(int value) { return tv::text::format(L"%d", value); }

} // namespace

ListCell CLayerCellItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell;
    cell.text = text(layer);
    cell.editable = editor(layer) != Editor::none;
    return cell;
}

// --- texts ---------------------------------------------------------------------------------------------------

std::wstring CLayerStringItem::text(const T_LAYER_DATA& layer) const {
    switch (column()) {
    case LayerColumn::name:
        return layer.name.wstr();
    case LayerColumn::description:
        return layer.description.wstr();
    case LayerColumn::plotStyle:
        return layer.plotStyle.wstr();
    case LayerColumn::vpPlotStyle:
        return (layer.vp.plotStyle ? kx::layers::plotStyleName(*layer.vp.plotStyle) : layer.plotStyle).wstr();
    default:
        return {};
    }
}

ListCell CLayerStringItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell = CLayerCellItem::cell(layer);
    if (column() == LayerColumn::name) cell.bold = layer.current;
    if (column() == LayerColumn::vpPlotStyle && layer.vp.plotStyle) markOverride(cell, layer.plotStyle.wstr());
    return cell;
}

Editor CLayerStringItem::editor(const T_LAYER_DATA& layer) const {
    const bool opens = column() == LayerColumn::description &&
                       !tv::text::equalNoCase(layer.name.view(), kx::layers::kRegionViewLayer);
    return opens ? Editor::edit : Editor::none;
}

LayerCellClick CLayerStringItem::click() const {
    return column() == LayerColumn::plotStyle || column() == LayerColumn::vpPlotStyle
               ? LayerCellClick::plotStyle
               : LayerCellClick::none;
}

// --- icons ---------------------------------------------------------------------------------------------------

namespace {

// The state an icon shows; of the status the current mark.
bool stateOf(LayerColumn column, const T_LAYER_DATA& layer) {
    switch (column) {
    case LayerColumn::on:
        return layer.on;
    case LayerColumn::freeze:
        return layer.frozen;
    case LayerColumn::lock:
        return layer.locked;
    case LayerColumn::plot:
        return layer.plot;
    case LayerColumn::newVpFreeze:
        return layer.newVpFrozen;
    case LayerColumn::vpFreeze:
        return layer.vpFrozen;
    default:
        return layer.current;
    }
}

kx::layers::LayerStatus statusOf(const T_LAYER_DATA& layer) {
    using kx::layers::LayerStatus;
    return layer.current ? LayerStatus::current : layer.xref ? LayerStatus::xref : LayerStatus::plain;
}

std::wstring statusText(kx::layers::LayerStatus status) {
    switch (status) {
    case kx::layers::LayerStatus::current:
        return VORD_ResourceString("IDS_TAVO_LAYERCELL_CURRENT", L"현재 도면층").c_str();
    case kx::layers::LayerStatus::xref:
        return VORD_ResourceString("IDS_TAVO_LAYERCELL_XREF", L"외부 참조 도면층").c_str();
    case kx::layers::LayerStatus::plain:
        break;
    }
    return VORD_ResourceString("IDS_TAVO_LAYERCELL_PLAIN", L"도면층").c_str();
}

} // namespace

LayerVariant CLayerIconItem::value(const T_LAYER_DATA& layer) const {
    if (column() != LayerColumn::status) return stateOf(column(), layer);
    // The current layer first, those of other drawings last.
    return static_cast<std::int16_t>(layer.current ? 0 : layer.xref ? 2 : 1);
}

std::wstring CLayerIconItem::text(const T_LAYER_DATA& layer) const {
    const bool state = stateOf(column(), layer);
    switch (column()) {
    case LayerColumn::on:
        return state ? VORD_ResourceString("IDS_TAVO_LAYERCELL_ON", L"켜짐").c_str()
                     : VORD_ResourceString("IDS_TAVO_LAYERCELL_OFF", L"꺼짐").c_str();
    case LayerColumn::freeze:
        return state ? VORD_ResourceString("IDS_TAVO_LAYERCELL_FROZEN", L"동결됨").c_str()
                     : VORD_ResourceString("IDS_TAVO_LAYERCELL_THAWED", L"동결 해제됨").c_str();
    case LayerColumn::lock:
        return state ? VORD_ResourceString("IDS_TAVO_LAYERCELL_LOCKED", L"잠김").c_str()
                     : VORD_ResourceString("IDS_TAVO_LAYERCELL_UNLOCKED", L"잠금 해제됨").c_str();
    case LayerColumn::plot:
        return state ? VORD_ResourceString("IDS_TAVO_LAYERCELL_PLOT", L"플롯함").c_str()
                     : VORD_ResourceString("IDS_TAVO_LAYERCELL_NO_PLOT", L"플롯하지 않음").c_str();
    case LayerColumn::newVpFreeze:
        return state ? VORD_ResourceString("IDS_TAVO_LAYERCELL_NEWVP_FROZEN", L"새 뷰포트에서 동결").c_str()
                     : VORD_ResourceString("IDS_TAVO_LAYERCELL_NEWVP_THAWED", L"새 뷰포트에 표시").c_str();
    case LayerColumn::vpFreeze:
        return state ? VORD_ResourceString("IDS_TAVO_LAYERCELL_VP_FROZEN", L"이 뷰포트에서 동결됨").c_str()
                     : VORD_ResourceString("IDS_TAVO_LAYERCELL_VP_THAWED", L"이 뷰포트에 표시됨").c_str();
    default:
        return statusText(statusOf(layer));
    }
}

ListCell CLayerIconItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell = CLayerCellItem::cell(layer);
    const bool state = stateOf(column(), layer);
    cell.pictureOnly = true;
    switch (column()) {
    case LayerColumn::on:
        cell.picture = kx::layers::lampIcon(state);
        break;
    case LayerColumn::freeze:
        cell.picture = kx::layers::frozenIcon(state);
        break;
    case LayerColumn::lock:
        cell.picture = kx::layers::lockIcon(state);
        break;
    case LayerColumn::plot:
        cell.picture = kx::layers::plotIcon(state);
        break;
    case LayerColumn::newVpFreeze:
        cell.picture = kx::layers::newViewportIcon(state);
        break;
    case LayerColumn::vpFreeze:
        cell.picture = kx::layers::viewportIcon(state);
        break;
    default:
        cell.picture = kx::layers::statusIcon(statusOf(layer));
        break;
    }
    return cell;
}

int CLayerIconItem::icon() const {
    switch (column()) {
    case LayerColumn::on:
        return 1;
    case LayerColumn::freeze:
        return 2;
    case LayerColumn::lock:
        return 3;
    case LayerColumn::plot:
        return 4;
    case LayerColumn::newVpFreeze:
        return 5;
    case LayerColumn::vpFreeze:
        return 6;
    default:
        return 0;
    }
}

std::wstring CLayerIconListItem::text(const T_LAYER_DATA& layer) const {
    return tv::text::format(L"%d", m_chosen(layer));
}

ListCell CLayerIconListItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell = CLayerCellItem::cell(layer);
    const Icon* icon = OnSelectCombo(cell.text);
    if (!icon) return cell;
    cell.picture = icon->picture;
    cell.pictureOnly = true;
    cell.hint = icon->text;
    return cell;
}

std::vector<tv::ui::ListItem> CLayerIconListItem::CreateCombo() const {
    std::vector<tv::ui::ListItem> items;
    for (const Icon& icon : m_icons)
        items.push_back(
            {tv::text::format(L"%d", icon.number), static_cast<std::uintptr_t>(icon.number), icon.picture});
    return items;
}

const CLayerIconListItem::Icon* CLayerIconListItem::OnSelectCombo(std::wstring_view key) const {
    const auto found = std::ranges::find_if(
        m_icons, [&](const Icon& icon) { return tv::text::format(L"%d", icon.number) == key; });
    return found == m_icons.end() ? nullptr : &*found;
}

// --- colours -------------------------------------------------------------------------------------------------

CLayerColorItem::CLayerColorItem(LayerColumn column) : CLayerCellItem(column) {
    OdCmColor background;
    if (tvedGetVar(L"BKGCOLOR", background, nullptr) != Tavo::eOk) return;
    const tv::dwg::Rgb rgb = background.rgb();
    m_lightBackground = rgb.red * 299 + rgb.green * 587 + rgb.blue * 114 > 128 * 1000;
}

std::wstring CLayerColorItem::nameOf(const OdCmColor& color, std::wstring_view book) {
    if (!book.empty())
        return std::wstring(book.substr(book.rfind(L'$') + 1)); // the book's name stands in front
    return color.isByACI() ? tv::text::format(L"Color_%d", color.colorIndex()) : kx::frame::colorText(color);
}

// The indexed ones by number, then the others.
LayerVariant CLayerColorItem::value(const T_LAYER_DATA& layer) const {
    const OdCmColor color = colorOf(layer);
    if (!color.isByColor()) return std::int32_t{color.colorIndex()};
    return static_cast<std::int32_t>(kx::frame::swatchRgb(color.rgb()) + 0x1000000);
}

std::wstring CLayerColorItem::text(const T_LAYER_DATA& layer) const {
    return nameOf(layer.color, layer.bookColor.view());
}

ListCell CLayerColorItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell = CLayerCellItem::cell(layer);
    const OdCmColor color = colorOf(layer);
    const bool contrasts = color.isByACI() && color.colorIndex() == 7 && m_lightBackground;
    cell.picture = tv::ui::colorPicture(contrasts ? 0 : kx::frame::swatchRgb(color.rgb()));
    // What "Color_1" is called.
    if (color.isByACI() && color.colorIndex() <= kStandardColors)
        cell.hint = tv::text::format(L"%s (%s)", cell.text, kx::frame::colorText(color));
    if (!layer.bookColor.isEmpty() && column() == LayerColumn::color) cell.hint = layer.bookColor.wstr();
    return cell;
}

std::wstring CLayerColorBtnItem::text(const T_LAYER_DATA& layer) const {
    return layer.vp.color ? nameOf(*layer.vp.color) : CLayerColorItem::text(layer);
}

ListCell CLayerColorBtnItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell = CLayerColorItem::cell(layer);
    if (layer.vp.color) markOverride(cell, CLayerColorItem::text(layer));
    return cell;
}

// --- lines ---------------------------------------------------------------------------------------------------

std::wstring CLayerLineTypeItem::text(const T_LAYER_DATA& layer) const {
    const bool own = column() == LayerColumn::vpLinetype && layer.vp.linetype;
    return (own ? kx::layers::linetypeName(*layer.vp.linetype) : layer.linetype).wstr();
}

ListCell CLayerLineTypeItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell = CLayerCellItem::cell(layer);
    const OdDbDatabase* database = layer.id.database();
    const auto table = database ? database->getLinetypeTableId().open<OdDbSymbolTable>() : nullptr;
    if (const auto linetype = table ? table->getAt(cell.text).open<OdDbLinetypeTableRecord>() : nullptr)
        cell.picture = tv::ui::dashPicture(linetype->dashes());
    if (column() == LayerColumn::vpLinetype && layer.vp.linetype) markOverride(cell, layer.linetype.wstr());
    return cell;
}

CLayerLineWeightItem::CLayerLineWeightItem(LayerColumn column)
    : CLayerCellItem(column), m_inches(kx::frame::lineWeightsInInches()) {}

OdDb::LineWeight CLayerLineWeightItem::weightOf(const T_LAYER_DATA& layer) const {
    return column() == LayerColumn::vpLineweight ? layer.vp.lineWeight.value_or(layer.lineWeight)
                                                 : layer.lineWeight;
}

LayerVariant CLayerLineWeightItem::value(const T_LAYER_DATA& layer) const {
    return static_cast<std::int16_t>(weightOf(layer));
}

std::wstring CLayerLineWeightItem::text(const T_LAYER_DATA& layer) const {
    return kx::frame::lineWeightText(weightOf(layer), m_inches);
}

ListCell CLayerLineWeightItem::cell(const T_LAYER_DATA& layer) const {
    constexpr double hairline = 0.01; // the thinnest width is drawn as a line, too
    ListCell cell = CLayerCellItem::cell(layer);
    if (const auto weight = weightOf(layer); weight >= OdDb::kLnWt000)
        cell.picture = tv::ui::linePicture(std::max(hairline, kx::frame::millimetresOf(weight)));
    if (column() == LayerColumn::vpLineweight && layer.vp.lineWeight)
        markOverride(cell, kx::frame::lineWeightText(layer.lineWeight, m_inches));
    return cell;
}

// --- transparency --------------------------------------------------------------------------------------------

LayerVariant CLayerTransparencyItem::value(const T_LAYER_DATA& layer) const {
    const bool own = column() == LayerColumn::vpTransparency && layer.vp.transparency;
    return static_cast<std::int16_t>(own ? layer.vp.transparency->percent() : layer.transparency);
}

std::wstring CLayerTransparencyItem::text(const T_LAYER_DATA& layer) const {
    return percent(std::get<std::int16_t>(value(layer)));
}

ListCell CLayerTransparencyItem::cell(const T_LAYER_DATA& layer) const {
    ListCell cell = CLayerCellItem::cell(layer);
    if (column() == LayerColumn::vpTransparency && layer.vp.transparency)
        markOverride(cell, percent(layer.transparency));
    return cell;
}

// --- the table of columns ------------------------------------------------------------------------------------

namespace kx::layers {
namespace {

using Align = tv::ui::ListColumn::Align;

struct Look {
    int width;
    Align align;
};
constexpr Look kLooks[] = {
    {36, Align::center}, {160, Align::left},  {36, Align::center}, {36, Align::center}, {36, Align::center},
    {96, Align::left},   {155, Align::left},  {142, Align::left},  {60, Align::center}, {90, Align::left},
    {36, Align::center}, {60, Align::center}, {50, Align::center}, {96, Align::left},   {155, Align::left},
    {142, Align::left},  {60, Align::center}, {90, Align::left},   {200, Align::left},
};
static_assert(std::size(kLooks) == kLayerColumns);

std::unique_ptr<CLayerCellItem> makeItem(LayerColumn column) {
    switch (column) {
    case LayerColumn::name:
        return std::make_unique<CLayerNameItem>();
    case LayerColumn::plotStyle:
    case LayerColumn::vpPlotStyle:
    case LayerColumn::description:
        return std::make_unique<CLayerStringItem>(column);
    case LayerColumn::color:
        return std::make_unique<CLayerColorItem>();
    case LayerColumn::vpColor:
        return std::make_unique<CLayerColorBtnItem>();
    case LayerColumn::linetype:
    case LayerColumn::vpLinetype:
        return std::make_unique<CLayerLineTypeItem>(column);
    case LayerColumn::lineweight:
    case LayerColumn::vpLineweight:
        return std::make_unique<CLayerLineWeightItem>(column);
    case LayerColumn::transparency:
    case LayerColumn::vpTransparency:
        return std::make_unique<CLayerTransparencyItem>(column);
    default:
        return std::make_unique<CLayerIconItem>(column);
    }
}

} // namespace

std::vector<tv::ui::ListColumn> layerColumns() {
    std::vector<tv::ui::ListColumn> columns;
    for (std::size_t i = 0; i < std::size(kLooks); ++i)
        columns.push_back(
            {layerColumnText(static_cast<LayerColumn>(i)), kLooks[i].width, kLooks[i].align, true, {}});
    // Headings of narrow columns may be cut off.
    for (tv::ui::ListColumn& column : columns)
        column.hint = column.title;
    columns.back().hint = VORD_ResourceString("IDS_MGD_COMMON_DESC", L"설명").c_str();
    return columns;
}

std::vector<std::unique_ptr<CLayerCellItem>> layerItems() {
    std::vector<std::unique_ptr<CLayerCellItem>> items;
    for (int column = 0; column < kLayerColumns; ++column)
        items.push_back(makeItem(static_cast<LayerColumn>(column)));
    return items;
}

} // namespace kx::layers
