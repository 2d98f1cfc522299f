#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/entities/EntityAppender.h"
#include "platform/drawing/entities/OdDbBlockReference.h"
#include "platform/text/Unicode.h"

#include <algorithm>

namespace tv::dwg {
namespace {

// Groups of code 102 hold reactors and the extension dictionary.
void dropGroups(RecordEditor& record) {
    for (std::size_t i = 0; i < record.size() && record.code(i) < 1000;) {
        if (record.code(i) != 102 || !trimmed(record.raw(i)).starts_with('{')) {
            ++i;
            continue;
        }
        while (i < record.size() && record.code(i) < 1000) {
            const bool end = record.code(i) == 102 && trimmed(record.raw(i)) == "}";
            record.erase(i);
            if (end) break;
        }
    }
}

// Extended data that name objects belong to the original; what a dimension overrides does not.
void dropTyingData(RecordEditor& record) {
    for (std::size_t i = 0; i < record.size();) {
        if (record.code(i) != 1001) {
            ++i;
            continue;
        }
        std::size_t end = i + 1;
        bool ties = false;
        for (; end < record.size() && record.code(end) != 1001; ++end)
            ties |= record.code(end) == 1005;
        if (!ties || text::equalNoCase(record.text(i).view(), L"ACAD")) {
            i = end;
            continue;
        }
        while (end-- > i)
            record.erase(end);
    }
}

void dropAssociations(RecordEditor& record, std::string_view type) {
    std::vector<std::size_t> gone;
    bool inside = false;
    for (const std::size_t i : ownTags(record)) {
        const int code = record.code(i);
        if (code == 100) inside = trimmed(record.raw(i)) != "AcDbEntity";
        if (!inside) continue;
        if (type == "HATCH") {
            if (code == 330) gone.push_back(i);
            if (code == 97 || code == 71) record.set(i, std::int64_t{0});
        } else if (type == "LEADER") {
            if (code == 340) gone.push_back(i);
            if (code == 73) record.set(i, std::int64_t{3}); // no annotation
        } else if ((type == "IMAGE" || type == "WIPEOUT") && code == 360) {
            gone.push_back(i);
        } else if (type == "DIMENSION" && code == 70) {
            // The block that shows it is no longer its alone.
            const Value flags = record.value(i);
            if (const auto* bits = std::get_if<std::int64_t>(&flags)) record.set(i, *bits & ~std::int64_t{32});
        }
    }
    for (auto i = gone.rbegin(); i != gone.rend(); ++i)
        record.erase(*i);
}

// The common part's tag gets the value, or goes for an empty one; a missing one is put before `before`.
void setCommon(RecordEditor& record, int code, std::optional<Value> value, std::initializer_list<int> behind) {
    int marks = 0;
    std::size_t place = 1;
    for (const std::size_t i : ownTags(record)) {
        if (record.code(i) == 100 && ++marks == 2) break;
        if (record.code(i) == code) {
            if (value)
                record.set(i, *value);
            else
                record.erase(i);
            return;
        }
        if (std::find(behind.begin(), behind.end(), record.code(i)) != behind.end()) place = i + 1;
    }
    if (value) record.insert(place, code, *value);
}

// From R2013 on the shape of solids, regions and bodies stands in a section of its own, by handle; it would be
// missing in a copy. Where the entity says it itself, it does so as text.
bool shapeStandsElsewhere(const RecordStore& store, RecordId id) {
    OwnTags own(store.format(), store.text(id));
    bool modeler = false;
    for (Tag tag; own.next(tag);) {
        if (tag.code == 100) modeler |= trimmed(tag.value) == "AcDbModelerGeometry";
        if (modeler && (tag.code == 1 || tag.code == 310)) return false;
    }
    return modeler;
}

} // namespace

AppendResult copyEntity(OdDbObjectId entity, const EntityHome& home) {
    const auto original = entity.open<OdDbEntity>();
    if (!original) return {entity.isErased() ? Tavo::eWasErased : Tavo::eWrongType, {}};
    if (const auto status = checkHome(home); status != Tavo::eOk) return {status, {}};
    OdDbDatabase& database = *home.database();
    if (entity.database() != &database) return {Tavo::eInvalidInput, {}};
    RecordStore& store = database.store();
    if ((store.record(entity.record()).flags & kSubEntity) || store.typeName(entity.record()) == "VIEWPORT" ||
        shapeStandsElsewhere(store, entity.record()))
        return {Tavo::eNotHandled, {}};
    if (const auto insert = entity.open<OdDbBlockReference>();
        insert && holdsHome(home, insert->blockName().view()))
        return {Tavo::eInvalidInput, {}};

    std::vector<RecordId> records{entity.record()};
    for (const OdDbObjectId sub : subEntities(entity))
        records.push_back(sub.record());

    const OdDbUndoScope step(database, L"COPY");
    const HomePlace place = findPlace(home);
    if (place.status != Tavo::eOk) return {place.status, {}};
    RecordId last = place.last;
    OdDbHandle main;
    OdDbObjectId made;
    for (const RecordId id : records) {
        RecordEditor record(store.format(), store.text(id));
        dropGroups(record);
        dropTyingData(record);
        dropAssociations(record, store.typeName(id));
        OdDbHandle handle;
        if (place.handles) handle = takeHandle(database);
        setCommon(record, 5, handle.isNull() ? std::nullopt : std::optional<Value>(handle), {});
        const OdDbHandle owner = made.isNull() ? place.ownerHandle : main;
        if (database.form() >= OdDb::DxfVersion::kR2000 && !owner.isNull()) setCommon(record, 330, owner, {5});
        setCommon(record, 67, place.paper ? std::optional<Value>(std::int64_t{1}) : std::nullopt,
                  {5, 330, 100});
        setCommon(record, 410, std::nullopt, {});
        last = store.insertAfter(last, record.bytes(), place.section, place.owner);
        if (last == kNoRecord) return {Tavo::eReadOnly, {}};
        if (made.isNull()) {
            made = {&database, last};
            main = handle;
        }
    }
    return {Tavo::eOk, made};
}

} // namespace tv::dwg
