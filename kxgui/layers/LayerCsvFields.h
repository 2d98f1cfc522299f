#pragma once

#include "kxgui/layers/LayerWriter.h"

#include <array>
#include <string>
#include <string_view>

// The fields of a layer list: what each column is called, says and takes.
namespace kx::layers {

struct LayerCsvColumn {
    LayerColumn column;
    const wchar_t* heading;
    unsigned field; // of LayerFields; 0 for what isn't written
};
inline constexpr std::array<LayerCsvColumn, 13> kLayerCsvColumns = {{
    {LayerColumn::status, L"Status", 0},
    {LayerColumn::name, L"Name", 0},
    {LayerColumn::on, L"On", kFieldOn},
    {LayerColumn::freeze, L"Freeze", kFieldFrozen},
    {LayerColumn::lock, L"Lock", kFieldLocked},
    {LayerColumn::color, L"Color", kFieldColor},
    {LayerColumn::linetype, L"Linetype", kFieldLinetype},
    {LayerColumn::lineweight, L"Lineweight", kFieldLineWeight},
    {LayerColumn::transparency, L"Transparency", kFieldTransparency},
    {LayerColumn::plotStyle, L"Plot Style", kFieldPlotStyle},
    {LayerColumn::plot, L"Plot", kFieldPlot},
    {LayerColumn::newVpFreeze, L"New VP Freeze", kFieldNewVpFrozen},
    {LayerColumn::description, L"Description", kFieldDescription},
}};

// What the list says of the layer.
std::wstring layerCsvField(const T_LAYER_DATA& layer, LayerColumn column);

// Sets what a field says. The reason why it can't be, in one sentence; empty when it could.
std::wstring readLayerCsvField(const OdDbDatabase& database, std::wstring_view text, LayerColumn column,
                               T_LAYER_DATA& layer);

std::wstring_view withoutBlanks(std::wstring_view text);
std::wstring firstLine(const std::wstring& text);

} // namespace kx::layers
