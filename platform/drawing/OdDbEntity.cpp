#include "platform/drawing/OdDbEntity.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

#include <algorithm>

using namespace tv::dwg;

namespace {

// The order in which files have the tags of the common part.
constexpr int kCommonOrder[] = {5,   330, 100, 67, 410, 8,   6,   347, 348, 62,
                                420, 430, 440, 48, 60,  370, 380, 390, 284};

std::size_t rankOf(int code) {
    return static_cast<std::size_t>(std::find(std::begin(kCommonOrder), std::end(kCommonOrder), code) -
                                    std::begin(kCommonOrder));
}

// Where a tag the common part lacks belongs: behind the last one that files have before it.
std::size_t commonPlace(const RecordEditor& record, int code) {
    std::size_t place = 1;
    std::size_t fallback = 1;
    int marks = 0;
    for (const std::size_t i : ownTags(record)) {
        if (record.code(i) == 100 && ++marks == 2) break;
        fallback = i + 1;
        if (rankOf(record.code(i)) < rankOf(code)) place = i + 1;
    }
    return place > 1 ? place : fallback;
}

} // namespace

OdString OdDbEntity::commonText(int code) const {
    const auto tag = find(code, Part::kCommon);
    return tag ? textOf(format(), *tag) : OdString();
}

std::int64_t OdDbEntity::commonInteger(int code, std::int64_t otherwise) const {
    const auto tag = find(code, Part::kCommon);
    return tag ? integerOf(format(), *tag).value_or(otherwise) : otherwise;
}

OdDbObjectId OdDbEntity::commonId(int code) const {
    const auto tag = find(code, Part::kCommon);
    const auto handle = tag ? handleOf(format(), *tag) : std::nullopt;
    return handle ? database()->getOdDbObjectId(*handle) : OdDbObjectId();
}

Tavo::ErrorStatus OdDbEntity::setCommon(int code, const Value& value) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (find(code, Part::kCommon)) return setAt(code, value, {}, Part::kCommon);
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    if (!record.insert(commonPlace(record, code), code, value)) return Tavo::eWrongType;
    store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
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
    return setCommon(8, OdString(name));
}

OdCmColor OdDbEntity::color() const {
    std::optional<int> index;
    std::optional<int> rgb;
    if (find(62, Part::kCommon)) index = static_cast<int>(commonInteger(62, OdCmColor::kACIbyLayer));
    if (find(420, Part::kCommon)) rgb = static_cast<int>(commonInteger(420, 0));
    return OdCmColor::fromDxf(index, rgb);
}

OdString OdDbEntity::colorBookName() const { return commonText(430); }

Tavo::ErrorStatus OdDbEntity::setColor(const OdCmColor& color) { return setBookColor(color, {}); }

Tavo::ErrorStatus OdDbEntity::setBookColor(const OdCmColor& color, std::wstring_view bookName) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (!bookName.empty() && !color.isByColor()) return Tavo::eInvalidInput;
    if (color.isByColor())
        if (const auto status = database()->require(OdDb::Feature::kTrueColor); status != Tavo::eOk)
            return status;
    if (color == this->color() && colorBookName().view() == bookName) return Tavo::eOk;
    const OdDbUndoScope step(*database(), L"COLOR");
    if (color != this->color()) {
        // By layer is what a missing colour means.
        if (color.isByLayer())
            removeCommon(62);
        else
            setCommon(62, std::int64_t{color.dxf62()});
        if (const auto rgb = color.dxf420())
            setCommon(420, std::int64_t{*rgb});
        else
            removeCommon(420);
    }
    return bookName.empty() ? removeCommon(430) : setCommon(430, OdString(bookName));
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
    if (tv::text::equalNoCase(name, linetype().view())) return Tavo::eOk;
    if (tv::text::equalNoCase(name, L"BYLAYER")) return removeCommon(6);
    const auto table = database()->getLinetypeTableId().open<OdDbSymbolTable>();
    if (!tv::text::equalNoCase(name, L"BYBLOCK") && (!table || !table->has(name))) return Tavo::eKeyNotFound;
    return setCommon(6, OdString(name));
}

double OdDbEntity::linetypeScale() const {
    const auto tag = find(48, Part::kCommon);
    return tag ? realOf(format(), *tag).value_or(1) : 1;
}

Tavo::ErrorStatus OdDbEntity::setLinetypeScale(double scale) {
    if (scale == linetypeScale()) return checkWrite();
    if (const auto status = database()->require(OdDb::Feature::kLinetypeScale); status != Tavo::eOk)
        return status;
    return setCommon(48, scale);
}

OdDb::LineWeight OdDbEntity::lineWeight() const {
    return static_cast<OdDb::LineWeight>(commonInteger(370, OdDb::kLnWtByLayer));
}

Tavo::ErrorStatus OdDbEntity::setLineWeight(OdDb::LineWeight weight) {
    const auto& known = OdDb::kLineWeights;
    if (std::find(known.begin(), known.end(), weight) == known.end()) return Tavo::eOutOfRange;
    if (weight == lineWeight()) return checkWrite();
    if (const auto status = database()->require(OdDb::Feature::kLineWeight); status != Tavo::eOk) return status;
    return setCommon(370, std::int64_t{weight});
}

OdCmTransparency OdDbEntity::transparency() const { return OdCmTransparency::fromDxf(commonInteger(440, 0)); }

Tavo::ErrorStatus OdDbEntity::setTransparency(OdCmTransparency transparency) {
    if (transparency == this->transparency()) return checkWrite();
    if (const auto status = database()->require(OdDb::Feature::kTransparency); status != Tavo::eOk)
        return status;
    if (transparency.isByLayer()) return removeCommon(440);
    return setCommon(440, std::int64_t{transparency.dxfValue()});
}

// Many programs write the handle alone.
OdDb::PlotStyleNameType OdDbEntity::plotStyleNameType() const {
    const bool named = find(390, Part::kCommon).has_value();
    const std::int64_t type =
        commonInteger(380, named ? OdDb::kPlotStyleNameById : OdDb::kPlotStyleNameByLayer);
    return type >= 0 && type <= 3 ? static_cast<OdDb::PlotStyleNameType>(type) : OdDb::kPlotStyleNameByLayer;
}

OdDbObjectId OdDbEntity::plotStyleNameId() const {
    return plotStyleNameType() == OdDb::kPlotStyleNameById ? commonId(390) : OdDbObjectId();
}

// The dictionary owns the placeholder, and says its name.
OdString OdDbEntity::plotStyleName() const {
    const OdDbObjectPtr style = plotStyleNameId().openObject();
    const auto owner = style ? style->ownerId().open<OdDbDictionary>() : nullptr;
    if (!owner) return {};
    for (const OdDbDictionary::Entry& entry : owner->entries())
        if (entry.handle == style->handle()) return entry.name;
    return {};
}

Tavo::ErrorStatus OdDbEntity::setPlotStyleName(OdDb::PlotStyleNameType type, OdDbObjectId id) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const bool byId = type == OdDb::kPlotStyleNameById;
    if (byId && (id.isErased() || id.database() != database() || id.handle().isNull()))
        return Tavo::eInvalidInput;
    if (type == plotStyleNameType() && (!byId || id == plotStyleNameId())) return Tavo::eOk;
    if (const auto status = database()->require(OdDb::Feature::kPlotStyle); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*database(), L"PLOTSTYLE");
    if (type == OdDb::kPlotStyleNameByLayer)
        removeCommon(380);
    else
        setCommon(380, std::int64_t{type});
    return byId ? setCommon(390, id.handle()) : removeCommon(390);
}

OdDbObjectId OdDbEntity::materialId() const { return commonId(347); }

Tavo::ErrorStatus OdDbEntity::setMaterial(OdDbObjectId material) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (material.isNull()) return removeCommon(347);
    if (material.isErased() || material.database() != database() || material.handle().isNull())
        return Tavo::eInvalidInput;
    if (material == materialId()) return Tavo::eOk;
    if (const auto status = database()->require(OdDb::Feature::kMaterial); status != Tavo::eOk) return status;
    return setCommon(347, material.handle());
}

OdDb::ShadowFlags OdDbEntity::shadowMode() const {
    const std::int64_t mode = commonInteger(284, 0);
    return mode >= 0 && mode <= 3 ? static_cast<OdDb::ShadowFlags>(mode) : OdDb::kShadowsCastAndReceive;
}

Tavo::ErrorStatus OdDbEntity::setShadowMode(OdDb::ShadowFlags mode) {
    if (mode == shadowMode()) return checkWrite();
    if (const auto status = database()->require(OdDb::Feature::kMaterial); status != Tavo::eOk) return status;
    if (mode == OdDb::kShadowsCastAndReceive) return removeCommon(284);
    return setCommon(284, std::int64_t{mode});
}

bool OdDbEntity::isVisible() const { return commonInteger(60, 0) == 0; }

Tavo::ErrorStatus OdDbEntity::setVisible(bool visible) {
    if (visible == isVisible()) return checkWrite();
    if (const auto status = database()->require(OdDb::Feature::kVisibility); status != Tavo::eOk) return status;
    return setCommon(60, std::int64_t{!visible});
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
