// Which layouts a drawing has and which of them is worked in.

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbLayout.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/OdDbViewport.h"

#include <algorithm>
#include <utility>

using namespace tv::dwg;

namespace {

bool tilesModel(const OdDbDatabase& database) {
    const auto mode = database.headerVar(L"TILEMODE");
    return !mode || mode->asInteger().value_or(1) != 0;
}

} // namespace

std::vector<OdDbObjectId> OdDbDatabase::layoutIds() const {
    std::vector<std::pair<int, OdDbObjectId>> found;
    if (const auto layouts = getLayoutDictionaryId().open<OdDbDictionary>())
        for (auto walk = layouts->newIterator(); !walk->done(); walk->next())
            if (const auto layout = walk->objectId().open<OdDbLayout>())
                found.emplace_back(layout->isModelLayout() ? -1 : layout->getTabOrder(), layout->objectId());
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<OdDbObjectId> out;
    for (const auto& [order, id] : found)
        out.push_back(id);
    return out;
}

OdDbObjectId OdDbDatabase::layoutOfBlock(OdDbObjectId blockRecord) const {
    if (blockRecord.isErased()) return {};
    const auto refersBack = [&](OdDbObjectId id) {
        const auto layout = id.open<OdDbLayout>();
        return layout && layout->getBlockTableRecordId() == blockRecord;
    };
    if (const OdDbObjectId named = blockRecord.openObject()->idAt(340); refersBack(named)) return named;
    for (const OdDbObjectId id : layoutIds())
        if (refersBack(id)) return id;
    return {};
}

OdDbObjectId OdDbDatabase::currentLayoutId() const {
    const auto blocks = getBlockTableId().open<OdDbBlockTable>();
    if (!blocks) return {};
    if (tilesModel(*this)) return layoutOfBlock(blocks->getModelSpaceId());
    if (!m_currentSheet.isErased()) return m_currentSheet;
    return layoutOfBlock(blocks->getPaperSpaceId());
}

Tavo::ErrorStatus OdDbDatabase::setCurrentLayout(OdDbObjectId id) {
    const auto layout = id.open<OdDbLayout>();
    if (!layout || id.database() != this) return Tavo::eInvalidInput;
    const bool model = layout->isModelLayout();
    if (model != tilesModel(*this))
        if (const tv::Problem problem = setHeaderVar(L"TILEMODE", HeaderValue::integer(model)))
            return problem.status;
    if (!model) m_currentSheet = id;
    m_activeViewport = {};
    return Tavo::eOk;
}

OdDbObjectId OdDbDatabase::activeViewportId() const {
    if (tilesModel(*this)) {
        const auto table = getViewportTableId().open<OdDbSymbolTable>();
        return table ? table->getAt(L"*Active") : OdDbObjectId();
    }
    const auto layout = currentLayoutId().open<OdDbLayout>();
    std::vector<OdDbObjectId> known;
    if (layout) {
        known = layout->viewports();
    } else {
        for (const OdDbObjectId id : paperSpace())
            if (isViewport(id)) known.push_back(id);
    }
    const auto has = [&](OdDbObjectId id) { return std::find(known.begin(), known.end(), id) != known.end(); };
    if (!m_activeViewport.isErased() && has(m_activeViewport)) return m_activeViewport;
    if (layout && has(layout->lastActiveViewportId())) return layout->lastActiveViewportId();
    for (const OdDbObjectId id : known)
        if (id.open<OdDbViewport>()->number() == 1) return id;
    return known.empty() ? OdDbObjectId() : known.front();
}

Tavo::ErrorStatus OdDbDatabase::setActiveViewport(OdDbObjectId viewport) {
    const OdDbObjectId before = std::exchange(m_activeViewport, viewport);
    if (isViewport(viewport) && activeViewportId() == viewport) return Tavo::eOk;
    m_activeViewport = before;
    return Tavo::eInvalidInput;
}
