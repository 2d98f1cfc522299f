#include "kxgui/frame/LinetypeRows.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/text/Collation.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>

namespace kx::frame {
namespace {

constexpr const wchar_t* kByLayer = L"ByLayer";
constexpr const wchar_t* kByBlock = L"ByBlock";

bool isSpecial(std::wstring_view name) {
    return tv::text::equalNoCase(name, kByLayer) || tv::text::equalNoCase(name, kByBlock);
}

} // namespace

std::vector<LinetypeRow> linetypeRows(const OdDbDatabase& database, bool special) {
    std::vector<LinetypeRow> rows;
    const auto table = database.getLinetypeTableId().open<OdDbLinetypeTable>();
    if (special) {
        for (const wchar_t* name : {kByLayer, kByBlock})
            rows.push_back({table ? table->getAt(name) : OdDbObjectId(), name, {}, {}, true});
    }
    if (!table) return rows;
    table->forEach([&rows](OdDbObjectId id) {
        const auto record = id.open<OdDbLinetypeTableRecord>();
        if (!record || record->isDependent()) return;
        const std::wstring name = record->getName().wstr();
        if (!isSpecial(name)) rows.push_back({id, name, record->comments().wstr(), tv::ui::dashPicture(record->dashes()), false});
    });
    return rows;
}

std::wstring linetypeText(const LinetypeRow& row) {
    if (!row.special) return row.name;
    return row.name == kByLayer ? VORD_ResourceString("IDC_TBMNU_513", L"ByLayer").c_str()
                                : VORD_ResourceString("IDC_TBMNU_515", L"ByBlock").c_str();
}

void sortLinetypes(std::vector<LinetypeRow>& rows, LinetypeOrder order, bool ascending) {
    const tv::text::Collator collator({.digitsAsNumbers = true, .ignoreCase = true});
    const auto text = order == LinetypeOrder::name ? &LinetypeRow::name : &LinetypeRow::description;
    const auto first =
        std::find_if(rows.begin(), rows.end(), [](const LinetypeRow& row) { return !row.special; });
    std::stable_sort(first, rows.end(), [&](const LinetypeRow& a, const LinetypeRow& b) {
        return ascending ? collator(a.*text, b.*text) : collator(b.*text, a.*text);
    });
}

} // namespace kx::frame
