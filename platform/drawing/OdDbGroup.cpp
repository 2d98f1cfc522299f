#include "platform/drawing/OdDbGroup.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/dxf/GroupMembers.h"
#include "platform/drawing/dxf/NewObject.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/Subclass.h"

#include <algorithm>
#include <unordered_set>

using namespace tv::dwg;

namespace {

constexpr int kMember = 340;

} // namespace

OdString OdDbGroup::getName() const {
    const auto groups = database()->getGroupDictionaryId().open<OdDbDictionary>();
    return groups ? groups->nameAt(objectId()) : OdString();
}

Tavo::ErrorStatus OdDbGroup::setName(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const auto groups = database()->getGroupDictionaryId().open<OdDbDictionary>(OdDb::kForWrite);
    return groups ? groups->setName(getName().view(), name) : Tavo::eKeyNotFound;
}

Tavo::ErrorStatus OdDbGroup::setDescription(std::wstring_view text) {
    return setIn(*this, "AcDbGroup", {{300, OdString(text)}}, {100});
}

Tavo::ErrorStatus OdDbGroup::setSelectable(bool selectable) {
    return setIn(*this, "AcDbGroup", {{71, std::int64_t{selectable}}}, {70, 300, 100});
}

std::vector<OdDbObjectId> OdDbGroup::entities() const {
    std::vector<OdDbObjectId> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    for (Tag tag; own.next(tag);) {
        if (tag.code != kMember) continue;
        const auto handle = handleOf(format(), tag);
        const OdDbObjectId id = handle ? database()->getOdDbObjectId(*handle) : OdDbObjectId();
        if (!id.isNull()) out.push_back(id);
    }
    return out;
}

bool OdDbGroup::has(OdDbObjectId entity) const {
    const std::vector<OdDbObjectId> members = entities();
    return std::find(members.begin(), members.end(), entity) != members.end();
}

Tavo::ErrorStatus OdDbGroup::append(std::span<const OdDbObjectId> entities) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const std::vector<OdDbObjectId> members = this->entities();
    std::unordered_set<OdDbObjectId> known(members.begin(), members.end());
    std::vector<OdDbObjectId> fresh;
    for (const OdDbObjectId id : entities) {
        if (id.database() != database() || id.handle().isNull() || !id.open<OdDbEntity>())
            return Tavo::eInvalidInput;
        if (known.insert(id).second) fresh.push_back(id);
    }
    if (fresh.empty()) return Tavo::eOk;
    const OdDbUndoScope step(*database(), L"GROUP");
    RecordStore& store = database()->store();
    TagWriter tags(format());
    for (const OdDbObjectId id : fresh)
        tags.tag(kMember, Value(id.handle()));
    // Behind the last tag of its own; a chain of ten thousand members is inserted as one piece.
    std::string bytes(store.text(objectId().record()));
    OwnTags own(format(), bytes);
    std::size_t end = 0;
    for (Tag tag; own.next(tag);)
        end = tag.end;
    bytes.insert(end, tags.take());
    store.replace(objectId().record(), std::move(bytes));
    for (const OdDbObjectId id : fresh)
        id.openObject(OdDb::kForWrite)->addPersistentReactor(objectId());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbGroup::dropMembers(std::span<const OdDbObjectId> gone, bool all) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    std::unordered_set<std::uint64_t> handles;
    for (const OdDbObjectId id : gone)
        if (id.database() == database()) handles.insert(id.handle().value());
    const OdDbUndoScope step(*database(), L"GROUP");
    RecordStore& store = database()->store();
    std::vector<OdDbHandle> freed;
    const auto drops = [&](const Tag& tag) {
        const auto handle = handleOf(format(), tag);
        return all || (handle && handles.contains(handle->value()));
    };
    store.replace(objectId().record(), withoutMembers(format(), store.text(objectId().record()), drops, freed));
    for (const OdDbHandle handle : freed)
        if (const OdDbObjectPtr member = database()->getOdDbObjectId(handle).openObject(OdDb::kForWrite))
            member->removePersistentReactor(objectId());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbGroup::remove(std::span<const OdDbObjectId> entities) {
    return dropMembers(entities, false);
}

Tavo::ErrorStatus OdDbGroup::clear() { return dropMembers({}, true); }

Tavo::ErrorStatus OdDbGroup::erase() {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*database(), L"GROUP");
    clear();
    if (const auto groups = database()->getGroupDictionaryId().open<OdDbDictionary>(OdDb::kForWrite))
        if (const OdString name = groups->nameAt(objectId()); !name.isEmpty()) groups->remove(name.view());
    return OdDbObject::erase();
}

OdDbObjectId tv::dwg::addGroup(OdDbDatabase& database, std::wstring_view name, std::wstring_view description) {
    if (name.empty()) return {};
    const OdDbUndoScope step(database, L"GROUP");
    const auto groups = database.getGroupDictionaryId(true).open<OdDbDictionary>(OdDb::kForWrite);
    if (!groups || groups->has(name)) return {};
    NewObject made(database, "GROUP", groups->handle());
    made.tags().name(100, "AcDbGroup").tag(300, description).tag(70, name.front() == L'*').tag(71, 1);
    const OdDbObjectId id = made.add(groups->objectId());
    if (!id.isNull()) groups->setAt(name, id);
    return id;
}
