#include "platform/drawing/OdDbLayout.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbViewport.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/Subclass.h"
#include "platform/text/Unicode.h"

#include <algorithm>

using namespace tv::dwg;

namespace {

constexpr const char* kPart = "AcDbLayout";
constexpr int kLayoutOfEntity = 410;

OdGePoint2d flat(const OdGePoint3d& p) { return {p.x, p.y}; }

Tavo::ErrorStatus setBit(OdDbLayout& layout, int bit, bool on) {
    const int now = integerIn(layout, kPart, 70);
    return setIn(layout, kPart, {{70, std::int64_t{on ? now | bit : now & ~bit}}}, {1});
}

} // namespace

OdString OdDbLayout::getLayoutName() const { return textIn(*this, kPart, 1); }

Tavo::ErrorStatus OdDbLayout::setLayoutName(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (name.empty() || isModelLayout()) return Tavo::eInvalidInput;
    const auto layouts = database()->getLayoutDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
    const OdDbUndoScope step(*database(), L"LAYOUT");
    if (layouts) {
        const OdString known = layouts->nameAt(objectId());
        if (known.isEmpty() ? layouts->has(name)
                            : !tv::text::equalNoCase(known.view(), name) && layouts->has(name))
            return Tavo::eDuplicate;
        if (!known.isEmpty())
            if (const auto status = layouts->setName(known.view(), name); status != Tavo::eOk) return status;
    }
    const OdString old = getLayoutName();
    if (const auto status = setIn(*this, kPart, {{1, OdString(name)}}, {100}); status != Tavo::eOk)
        return status;
    renameInEntities(old, OdString(name));
    return Tavo::eOk;
}

void OdDbLayout::renameInEntities(const OdString& from, const OdString& to) {
    RecordStore& store = database()->store();
    const auto rename = [&](OdDbObjectId id) {
        const auto tag = id.openObject()->find(kLayoutOfEntity, Part::kCommon);
        if (!tag || !tv::text::equalNoCase(textOf(format(), *tag).view(), from.view())) return;
        RecordEditor record(format(), store.text(id.record()));
        for (const std::size_t i : ownTags(record))
            if (record.code(i) == kLayoutOfEntity) {
                record.set(i, to);
                break;
            }
        if (record.edited()) store.replace(id.record(), record.bytes());
    };
    for (const OdDbObjectId id : entities()) {
        rename(id);
        for (const OdDbObjectId sub : subEntities(id))
            rename(sub);
    }
}

int OdDbLayout::getTabOrder() const { return integerIn(*this, kPart, 71); }

Tavo::ErrorStatus OdDbLayout::setTabOrder(int order) {
    if (order < 0 || order > 32767 || (order == 0) != isModelLayout()) return Tavo::eOutOfRange;
    return setIn(*this, kPart, {{71, std::int64_t{order}}}, {70, 1});
}

OdDbObjectId OdDbLayout::getBlockTableRecordId() const { return idIn(*this, kPart, 330); }

bool OdDbLayout::isModelLayout() const {
    const auto block = getBlockTableRecordId().open<OdDbBlockTableRecord>();
    return block ? tv::text::equalNoCase(block->getName().view(), L"*Model_Space") : modelType();
}

OdDbEntityRange OdDbLayout::entities() const {
    const auto block = getBlockTableRecordId().open<OdDbBlockTableRecord>();
    return block ? block->entities() : OdDbEntityRange();
}

bool OdDbLayout::psLtScale() const { return (integerIn(*this, kPart, 70) & 1) != 0; }
Tavo::ErrorStatus OdDbLayout::setPsLtScale(bool on) { return setBit(*this, 1, on); }
bool OdDbLayout::limitsCheck() const { return (integerIn(*this, kPart, 70) & 2) != 0; }
Tavo::ErrorStatus OdDbLayout::setLimitsCheck(bool on) { return setBit(*this, 2, on); }

OdGePoint2d OdDbLayout::limitsMin() const { return flat(pointIn(*this, kPart, 10)); }
OdGePoint2d OdDbLayout::limitsMax() const { return flat(pointIn(*this, kPart, 11)); }

Tavo::ErrorStatus OdDbLayout::setLimits(OdGePoint2d min, OdGePoint2d max) {
    return setIn(*this, kPart, {{10, min.x}, {20, min.y}, {11, max.x}, {21, max.y}}, {71, 70});
}

OdGePoint3d OdDbLayout::insertionBase() const { return pointIn(*this, kPart, 12); }
OdGePoint3d OdDbLayout::extentsMin() const { return pointIn(*this, kPart, 14); }
OdGePoint3d OdDbLayout::extentsMax() const { return pointIn(*this, kPart, 15); }

Tavo::ErrorStatus OdDbLayout::setExtents(const OdGePoint3d& min, const OdGePoint3d& max) {
    return setIn(*this, kPart, {{14, min.x}, {24, min.y}, {34, min.z}, {15, max.x}, {25, max.y}, {35, max.z}},
                 {32, 22, 21});
}

double OdDbLayout::elevation() const { return realIn(*this, kPart, 146); }
OdGePoint3d OdDbLayout::ucsOrigin() const { return pointIn(*this, kPart, 13); }
OdGePoint3d OdDbLayout::ucsXAxis() const { return pointIn(*this, kPart, 16, {1, 0, 0}); }
OdGePoint3d OdDbLayout::ucsYAxis() const { return pointIn(*this, kPart, 17, {0, 1, 0}); }
OdDbObjectId OdDbLayout::ucsId() const { return idIn(*this, kPart, 345); }

OdDbObjectId OdDbLayout::lastActiveViewportId() const { return idIn(*this, kPart, 331); }

Tavo::ErrorStatus OdDbLayout::setLastActiveViewportId(OdDbObjectId viewport) {
    const std::vector<OdDbObjectId> known = viewports();
    if (std::find(known.begin(), known.end(), viewport) == known.end() || viewport.handle().isNull())
        return Tavo::eInvalidInput;
    return setIn(*this, kPart, {{331, viewport.handle()}}, {330});
}

std::vector<OdDbObjectId> OdDbLayout::viewports() const {
    std::vector<OdDbObjectId> out;
    if (isModelLayout()) return out;
    for (const OdDbObjectId id : entities())
        if (isViewport(id)) out.push_back(id);
    return out;
}
