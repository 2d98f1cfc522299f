#include "platform/drawing/OdDbEntity.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

#include <algorithm>

using namespace tv::dwg;
using OdDb::DxfVersion;

OdString OdDbEntity::commonText(int code) const {
    const auto tag = find(code, Part::kCommon);
    return tag ? textOf(format(), *tag) : OdString();
}

int OdDbEntity::commonInteger(int code, int otherwise) const {
    const auto tag = find(code, Part::kCommon);
    return tag ? static_cast<int>(integerOf(format(), *tag).value_or(otherwise)) : otherwise;
}

OdString OdDbEntity::layer() const {
    OdString name = commonText(8);
    return name.isEmpty() ? OdString(L"0") : name;
}

OdDbObjectId OdDbEntity::layerId() const {
    const RecordId table = database()->store().table("LAYER");
    if (table == kNoRecord) return {};
    return {database(), database()->tableNames().find(table, layer().view())};
}

Tavo::ErrorStatus OdDbEntity::setLayer(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const auto table = database()->getLayerTableId().open<OdDbSymbolTable>();
    if (!table || !table->has(name)) return Tavo::eKeyNotFound;
    return setAt(8, OdString(name), {100, 330, 5}, Part::kCommon);
}

OdCmColor OdDbEntity::color() const {
    std::optional<int> index;
    std::optional<int> rgb;
    if (find(62, Part::kCommon)) index = commonInteger(62, OdCmColor::kACIbyLayer);
    if (find(420, Part::kCommon)) rgb = commonInteger(420, 0);
    return OdCmColor::fromDxf(index, rgb);
}

Tavo::ErrorStatus OdDbEntity::setColor(const OdCmColor& color) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const DxfVersion version = database()->version();
    if (color.isByColor() && version != DxfVersion::kUnknown && version < DxfVersion::kR2004)
        return Tavo::eNotHandled;
    if (color == this->color()) return Tavo::eOk;
    const OdDbUndoScope step(*database(), L"COLOR");
    // By layer is what a missing colour means.
    if (color.isByLayer())
        removeAt(62, Part::kCommon);
    else
        setAt(62, std::int64_t{color.dxf62()}, {6, 8}, Part::kCommon);
    if (const auto rgb = color.dxf420()) return setAt(420, std::int64_t{*rgb}, {62}, Part::kCommon);
    removeAt(430, Part::kCommon);
    return removeAt(420, Part::kCommon);
}

OdString OdDbEntity::linetype() const {
    OdString name = commonText(6);
    return name.isEmpty() ? OdString(L"BYLAYER") : name;
}

OdDbObjectId OdDbEntity::linetypeId() const {
    const OdString name = linetype();
    if (tv::text::equalNoCase(name.view(), L"BYLAYER") || tv::text::equalNoCase(name.view(), L"BYBLOCK"))
        return {};
    const RecordId table = database()->store().table("LTYPE");
    if (table == kNoRecord) return {};
    return {database(), database()->tableNames().find(table, name.view())};
}

Tavo::ErrorStatus OdDbEntity::setLinetype(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (tv::text::equalNoCase(name, L"BYLAYER")) return removeAt(6, Part::kCommon);
    const auto table = database()->getLinetypeTableId().open<OdDbSymbolTable>();
    if (!tv::text::equalNoCase(name, L"BYBLOCK") && (!table || !table->has(name))) return Tavo::eKeyNotFound;
    return setAt(6, OdString(name), {8}, Part::kCommon);
}

double OdDbEntity::linetypeScale() const {
    const auto tag = find(48, Part::kCommon);
    return tag ? realOf(format(), *tag).value_or(1) : 1;
}

Tavo::ErrorStatus OdDbEntity::setLinetypeScale(double scale) {
    if (scale == linetypeScale()) return checkWrite();
    return setAt(48, scale, {62, 6, 8}, Part::kCommon);
}

OdDb::LineWeight OdDbEntity::lineWeight() const {
    return static_cast<OdDb::LineWeight>(commonInteger(370, OdDb::kLnWtByLayer));
}

Tavo::ErrorStatus OdDbEntity::setLineWeight(OdDb::LineWeight weight) {
    const auto& known = OdDb::kLineWeights;
    if (std::find(known.begin(), known.end(), weight) == known.end()) return Tavo::eOutOfRange;
    if (weight == lineWeight()) return checkWrite();
    const DxfVersion version = database()->version();
    if (version != DxfVersion::kUnknown && version < DxfVersion::kR2000) return Tavo::eNotHandled;
    return setAt(370, std::int64_t{weight}, {420, 48, 62, 6, 8}, Part::kCommon);
}

bool OdDbEntity::isVisible() const { return commonInteger(60, 0) == 0; }

Tavo::ErrorStatus OdDbEntity::setVisible(bool visible) {
    if (visible == isVisible()) return checkWrite();
    return setAt(60, std::int64_t{!visible}, {370, 48, 62, 6, 8}, Part::kCommon);
}

bool OdDbEntity::isInPaperSpace() const { return commonInteger(67, 0) == 1; }

// In old drawings only the place tells whose the entity is.
OdDbObjectId OdDbEntity::ownerId() const {
    if (const auto tag = find(330, Part::kCommon))
        if (const auto handle = handleOf(format(), *tag))
            if (const OdDbObjectId owner = database()->getOdDbObjectId(*handle); !owner.isNull()) return owner;
    const RecordId owner = database()->store().record(objectId().record()).owner;
    return owner == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), owner);
}

OdDbEntityRange::Iterator OdDbEntityRange::begin() const {
    Iterator first;
    if (!m_database || m_start == kNoRecord) return first;
    first.m_database = m_database;
    first.m_start = first.m_record = m_start;
    first.m_kind = m_kind;
    return ++first;
}

OdDbEntityRange::Iterator& OdDbEntityRange::Iterator::operator++() {
    const RecordStore& store = m_database->store();
    for (;;) {
        m_record = store.next(m_record);
        if (m_record == kNoRecord) return *this;
        const Record& record = store.record(m_record);
        const bool sub = (record.flags & kSubEntity) != 0;
        const bool inside = m_kind == kBlock ? record.owner == m_start && record.type != kTypeEndBlk
                            : m_kind == kSubEntities
                                ? sub && record.owner == store.record(m_start).owner
                                : record.section == Section::kEntities && !(record.flags & kStructure);
        if (!inside) {
            m_record = kNoRecord;
            return *this;
        }
        if (m_kind == kSubEntities) return *this;
        if (sub) continue;
        const bool paper = (record.flags & kPaperSpace) != 0;
        if (m_kind == kBlock || paper == (m_kind == kPaper)) return *this;
    }
}

OdDbEntityRange tv::dwg::subEntities(OdDbObjectId main) {
    if (main.isErased()) return {};
    return {*main.database(), main.record(), OdDbEntityRange::kSubEntities};
}
