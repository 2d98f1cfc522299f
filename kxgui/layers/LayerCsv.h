#pragma once

#include "kxgui/Export.h"
#include "kxgui/layers/LayerWriter.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// The layer table as a list other programs edit: a line per layer with the columns of the layer manager, those
// of single viewports left out. Headings and values are the same in every language.
namespace kx::layers {

// UTF-8 with a byte order mark, lines as csvLine writes them.
KXGUI_EXPORT std::string exportLayers(const OdDbDatabase& database);
KXGUI_EXPORT tv::Problem exportLayersTo(const OdDbDatabase& database, const std::filesystem::path& file);

struct LayerCsvChange {
    LayerColumn column = LayerColumn::name;
    std::wstring before, after; // as the list has them; `before` is empty for a new layer
};

// What one line of a list comes to.
struct LayerCsvLine {
    enum class Kind : std::uint8_t { made, changed, same, refused };
    Kind kind = Kind::same;
    int line = 0;
    std::wstring name;
    std::vector<LayerCsvChange> changes;
    std::wstring refusal; // line, column and reason in one sentence
};

// What reading a list into a drawing would do; nothing is changed by making it.
struct LayerCsvPlan {
    tv::Problem problem;             // the list as a whole can't be used; the rest is empty then
    std::vector<LayerCsvLine> lines; // of the refused ones the first `mostRefusals`
    int made = 0, changed = 0, same = 0, refused = 0;
    std::vector<std::wstring> ignored; // headings nobody knows; their columns aren't read
    std::vector<LayerUpdate> updates;

    static constexpr int mostRefusals = 100;
};

// Headings are taken as exportLayers writes them or in the current language, in any order; "Name" must be among
// them. Lines name layers, letter case aside; names the drawing lacks are new layers. An empty field leaves
// what it is about as it is, but for the description. The status column tells which layer is current and isn't
// read.
KXGUI_EXPORT LayerCsvPlan planLayerImport(const OdDbDatabase& database, std::string_view bytes);
KXGUI_EXPORT LayerCsvPlan planLayerImportFile(const OdDbDatabase& database, const std::filesystem::path& file);

// One undo step named "_LAYER". A plan with refused lines is refused unless they are to be skipped; when the
// drawing refuses a line after all, nothing is changed. The drawing must be as it was when the plan was made.
KXGUI_EXPORT tv::Problem applyLayerImport(OdDbDatabase& database, LayerCsvPlan& plan, bool skipRefused);

} // namespace kx::layers
