// Any bytes as a layer list: the plan tells every line once, what it leaves of a drawing can be exported and
// comes back without a change, and undoing gives the first bytes back.

#include "fuzz/Require.h"
#include "kxgui/layers/CsvText.h"
#include "kxgui/layers/LayerCsv.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

using namespace kx::layers;

namespace {

OdDbDatabasePtr drawing(bool old) {
    auto database = OdDbDatabase::create(old ? OdDb::DxfVersion::kR12 : OdDb::DxfVersion::kR2018);
    const auto layers = database->layers(OdDb::kForWrite);
    for (const wchar_t* name : {L"Wall", L"Door", L"도면층 1"})
        layers->add(name);
    return database;
}

int linesOf(std::string_view list) {
    CsvReader reader(list);
    int count = 0;
    int last = 0;
    for (CsvLine line; reader.readable() && reader.next(line); ++count) {
        require(line.number > last, "lines out of order");
        require(!line.fields.empty() && line.fields.size() <= CsvReader::mostFields, "fields of a line");
        last = line.number;
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const std::string_view list(reinterpret_cast<const char*>(data) + 1, size - 1);
    const OdDbDatabasePtr database = drawing((data[0] & 1) != 0);
    const std::string first = database->bytes();
    LayerCsvPlan plan = planLayerImport(*database, list);
    require(database->bytes() == first, "a plan changed the drawing");
    if (plan.problem) {
        require(plan.lines.empty() && plan.updates.empty(), "a plan of a list that can't be read");
        return 0;
    }
    const int told = plan.made + plan.changed + plan.same + plan.refused;
    require(told + 1 == linesOf(list), "a line is missing");
    const int kept = std::min(plan.refused, LayerCsvPlan::mostRefusals);
    require(static_cast<int>(plan.lines.size()) == told - plan.refused + kept, "lines told");

    if (plan.refused > 0) require(bool(applyLayerImport(*database, plan, false)), "refused lines were applied");
    require(database->bytes() == first, "a refused import changed the drawing");
    require(!applyLayerImport(*database, plan, true), "what the plan accepted was refused");
    const LayerCsvPlan again = planLayerImport(*database, exportLayers(*database));
    require(!again.problem && again.made + again.changed + again.refused == 0, "an exported list differs");
    while (database->undo()) {
    }
    require(database->layers()->size() == 1, "undo left layers behind");
    return 0;
}
