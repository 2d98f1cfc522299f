// The layer manager: what a click on a cell does. Every call is one batch, and a batch is one undo step.
#include "kxgui/frame/ColorDlg.h"
#include "kxgui/frame/LineWeightDlg.h"
#include "kxgui/frame/LinetypeDlg.h"
#include "kxgui/layers/LayerBoxes.h"
#include "kxgui/layers/LayerDlg.h"
#include "kxgui/layers/LayerRecord.h"
#include "kxgui/layers/LayerTexts.h"
#include "kxgui/layers/LayerTransparencyDlg.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLinetypeTable.h"
#include "platform/host/TavoSharedGlobals.h"

#include <utility>

using namespace kx::layers;

namespace {

// What each icon stands for, 1 to 6.
constexpr unsigned kIconFields[] = {0,          kFieldOn,          kFieldFrozen,  kFieldLocked,
                                    kFieldPlot, kFieldNewVpFrozen, kFieldVpFrozen};

bool stateOf(const T_LAYER_DATA& row, unsigned field) {
    switch (field) {
    case kFieldOn:
        return row.on;
    case kFieldFrozen:
        return row.frozen;
    case kFieldLocked:
        return row.locked;
    case kFieldPlot:
        return row.plot;
    case kFieldNewVpFrozen:
        return row.newVpFrozen;
    default:
        return row.vpFrozen;
    }
}

void setState(T_LAYER_DATA& row, unsigned field, bool value) {
    switch (field) {
    case kFieldOn:
        row.on = value;
        break;
    case kFieldFrozen:
        row.frozen = value;
        break;
    case kFieldLocked:
        row.locked = value;
        break;
    case kFieldPlot:
        row.plot = value;
        break;
    case kFieldNewVpFrozen:
        row.newVpFrozen = value;
        break;
    default:
        row.vpFrozen = value;
    }
}

// What a column of viewport values holds; 0 for other columns.
unsigned overrideField(LayerColumn column) {
    switch (column) {
    case LayerColumn::vpColor:
        return kFieldVpColor;
    case LayerColumn::vpLinetype:
        return kFieldVpLinetype;
    case LayerColumn::vpLineweight:
        return kFieldVpLineWeight;
    case LayerColumn::vpTransparency:
        return kFieldVpTransparency;
    case LayerColumn::vpPlotStyle:
        return kFieldVpPlotStyle;
    default:
        return 0;
    }
}

} // namespace

// --- icons ---------------------------------------------------------------------------------------------------

void CLayerDlg::OnClickListItemIcon(int row, int icon) { toggle({row}, row, icon); }
void CLayerDlg::OnClickListItemIcons(int row, int icon) { toggle(selectedRows(), row, icon); }

void CLayerDlg::toggle(const Rows& rows, int clicked, int icon) {
    if (icon < 1 || icon > 6) return;
    const unsigned field = kIconFields[icon];
    m_toggledLast = setStates(layersOf(rows), field, !stateOf(m_rows->row(clicked), field));
}

// It is the step that came last, unless nothing came of the click.
void CLayerDlg::OnTakeBackListItem() {
    if (!std::exchange(m_toggledLast, false) || m_database->undoName() != L"_LAYER") return;
    m_database->undo();
    m_watcher.deliver();
}

bool CLayerDlg::setStates(const std::vector<OdDbObjectId>& layers, unsigned field, bool value) {
    if (!mayWrite()) return false;
    const OdDbObjectId current = currentLayer(*m_database);
    std::vector<LayerUpdate> updates;
    updates.reserve(layers.size());
    for (const OdDbObjectId layer : layers) {
        if (layer == current && field == kFieldOn && !value && TavoSharedGlobals::IsOnEXPERTMode(1) &&
            !askCurrentOff(this))
            continue;
        if (layer == current && field == kFieldFrozen && value) {
            warn(this, notFrozenBox());
            continue;
        }
        auto& update = updates.emplace_back();
        update.kind = field == kFieldVpFrozen ? kLayerViewport : kLayerProperty;
        update.fields = field;
        update.row.id = layer;
        setState(update.row, field, value);
    }
    return !updates.empty() && UpdateLayers(updates);
}

// --- values --------------------------------------------------------------------------------------------------

void CLayerDlg::OnClickListItemColor(int row, LayerColumn column) { chooseColor({row}, row, column); }
void CLayerDlg::OnClickListItemColors(int row, LayerColumn column) { chooseColor(selectedRows(), row, column); }
void CLayerDlg::OnClickListItemLineType(int row, LayerColumn column) { chooseLinetype({row}, row, column); }
void CLayerDlg::OnClickListItemLineTypes(int row, LayerColumn column) {
    chooseLinetype(selectedRows(), row, column);
}
void CLayerDlg::OnClickListItemLineWeight(int row, LayerColumn column) { chooseLineWeight({row}, row, column); }
void CLayerDlg::OnClickListItemLineWeights(int row, LayerColumn column) {
    chooseLineWeight(selectedRows(), row, column);
}
void CLayerDlg::OnClickListItemTransparency(int row, LayerColumn column) {
    chooseTransparency({row}, row, column);
}
void CLayerDlg::OnClickListItemTransparencys(int row, LayerColumn column) {
    chooseTransparency(selectedRows(), row, column);
}
void CLayerDlg::OnClickListItemPlotStyle(int row, LayerColumn column) { choosePlotStyle({row}, row, column); }
void CLayerDlg::OnClickListItemPlotStyles(int row, LayerColumn column) {
    choosePlotStyle(selectedRows(), row, column);
}

std::vector<OdDbObjectId> CLayerDlg::layersOf(const Rows& rows) const {
    std::vector<OdDbObjectId> layers;
    layers.reserve(rows.size());
    for (const int row : rows)
        layers.push_back(m_rows->layerAt(row));
    return layers;
}

void CLayerDlg::writeCells(const std::vector<OdDbObjectId>& layers, EN_LAYER_UPDATE kind, unsigned field,
                           const std::function<void(T_LAYER_DATA&)>& set) {
    std::vector<LayerUpdate> updates;
    updates.reserve(layers.size());
    for (const OdDbObjectId layer : layers) {
        auto& update = updates.emplace_back();
        update.kind = kind;
        update.fields = field;
        update.row.id = layer;
        set(update.row);
    }
    UpdateLayers(updates);
}

void CLayerDlg::chooseColor(const Rows& rows, int clicked, LayerColumn column) {
    if (!mayWrite()) return;
    const std::vector<OdDbObjectId> layers = layersOf(rows);
    const T_LAYER_DATA layer = m_rows->row(clicked);
    const bool vp = isViewportColumn(column);
    CColorDlg dialog(vp ? layer.vp.color.value_or(layer.color) : layer.color, 0, this);
    if (dialog.DoModal() != IDOK) return;
    const OdCmColor color = dialog.GetColor();
    writeCells(layers, vp ? kLayerViewport : kLayerProperty, vp ? kFieldVpColor : kFieldColor,
               [&](T_LAYER_DATA& row) {
                   row.color = color;
                   // The dialog knows no books: what was left as it was keeps its own.
                   if (color == layer.color) row.bookColor = layer.bookColor;
                   row.vp.color = color;
               });
}

void CLayerDlg::chooseLinetype(const Rows& rows, int clicked, LayerColumn column) {
    if (!mayWrite()) return;
    const std::vector<OdDbObjectId> layers = layersOf(rows);
    const T_LAYER_DATA layer = m_rows->row(clicked);
    const bool vp = isViewportColumn(column);
    CLinetypeDlg dialog(m_database, false, this);
    if (vp && layer.vp.linetype)
        dialog.SetLinetype(*layer.vp.linetype);
    else
        dialog.SetName(layer.linetype.view());
    if (dialog.DoModal() != IDOK) return;
    writeCells(layers, vp ? kLayerViewport : kLayerProperty, vp ? kFieldVpLinetype : kFieldLinetype,
               [&](T_LAYER_DATA& row) {
                   row.linetype = OdString(dialog.GetName());
                   row.vp.linetype = dialog.GetLinetype();
               });
}

void CLayerDlg::chooseLineWeight(const Rows& rows, int clicked, LayerColumn column) {
    if (!mayWrite()) return;
    const std::vector<OdDbObjectId> layers = layersOf(rows);
    const T_LAYER_DATA layer = m_rows->row(clicked);
    const bool vp = isViewportColumn(column);
    CLineWeightDlg dialog(m_database, this, kx::frame::LineWeightOffer::withDefault);
    dialog.SetLineWeight(vp ? layer.vp.lineWeight.value_or(layer.lineWeight) : layer.lineWeight);
    if (dialog.DoModal() != IDOK) return;
    writeCells(layers, vp ? kLayerViewport : kLayerProperty, vp ? kFieldVpLineWeight : kFieldLineWeight,
               [&](T_LAYER_DATA& row) {
                   row.lineWeight = dialog.GetLineWeight();
                   row.vp.lineWeight = dialog.GetLineWeight();
               });
}

void CLayerDlg::chooseTransparency(const Rows& rows, int clicked, LayerColumn column) {
    if (!mayWrite()) return;
    const std::vector<OdDbObjectId> layers = layersOf(rows);
    const T_LAYER_DATA layer = m_rows->row(clicked);
    const bool vp = isViewportColumn(column);
    const int present = vp && layer.vp.transparency ? layer.vp.transparency->percent() : layer.transparency;
    CLayerTransparencyDlg dialog(present, this);
    if (dialog.DoModal() != IDOK) return;
    writeCells(layers, vp ? kLayerViewport : kLayerProperty, vp ? kFieldVpTransparency : kFieldTransparency,
               [&](T_LAYER_DATA& row) {
                   row.transparency = dialog.GetTransparency();
                   row.vp.transparency = OdCmTransparency::byPercent(dialog.GetTransparency());
               });
}

void CLayerDlg::choosePlotStyle(const Rows& rows, int clicked, LayerColumn column) {
    if (!mayWrite()) return;
    const bool vp = isViewportColumn(column);
    const auto names = m_database->getPlotStyleNameDictionaryId().open<OdDbDictionary>();
    const auto byColor = m_database->headerVar(L"PSTYLEMODE");
    if (!names || (byColor && byColor->asInteger() == 1)) return warn(this, plotStylesByColorBox());
    const std::vector<OdDbObjectId> layers = layersOf(rows);
    const T_LAYER_DATA layer = m_rows->row(clicked);
    std::vector<tv::ui::MenuItem> menu;
    for (auto entry = names->newIterator(); !entry->done(); entry->next()) {
        const OdString name = entry->name();
        const OdDbObjectId style = entry->objectId();
        tv::ui::MenuItem& item = menu.emplace_back();
        item.text = literalMenuText(name.view());
        item.checked = vp ? layer.vp.plotStyle == style : layer.plotStyle == name;
        item.run = [this, layers, vp, name, style] {
            writeCells(layers, vp ? kLayerViewport : kLayerProperty, vp ? kFieldVpPlotStyle : kFieldPlotStyle,
                       [&](T_LAYER_DATA& row) {
                           row.plotStyle = name;
                           row.vp.plotStyle = style;
                       });
        };
    }
    m_list.ShowMenu(std::move(menu));
}

void CLayerDlg::OnClickListMenu_REMOVEOVERRIDE(LayerColumn column) {
    if (const unsigned field = overrideField(column))
        writeCells(m_list.SelectedLayers(), kLayerViewport, field, [](T_LAYER_DATA& row) { row.vp = {}; });
}

void CLayerDlg::OnClickListMenu_REMOVEOVERRIDES() {
    writeCells(m_list.SelectedLayers(), kLayerViewport,
               kFieldVpColor | kFieldVpLinetype | kFieldVpLineWeight | kFieldVpTransparency | kFieldVpPlotStyle,
               [](T_LAYER_DATA& row) { row.vp = {}; });
}
