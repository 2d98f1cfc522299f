#include "platform/drawing/NameReferences.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/NameTags.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

#include <array>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tv::dwg {
namespace {

struct KindName {
    std::string_view type;
    NamedKind kind;
};
constexpr KindName kKinds[] = {
    {"LAYER", NamedKind::kLayer},        {"LTYPE", NamedKind::kLinetype},
    {"STYLE", NamedKind::kTextStyle},    {"DIMSTYLE", NamedKind::kDimStyle},
    {"BLOCK_RECORD", NamedKind::kBlock}, {"APPID", NamedKind::kRegApp},
    {"VIEW", NamedKind::kView},          {"UCS", NamedKind::kUcs},
};

bool isPointer(int code) { return (code >= 340 && code <= 349) || (code >= 390 && code <= 399); }

// What a record that lists layers by handle is; these write them with group codes that otherwise mean an owner.
enum class Holder : std::uint8_t { kNone, kViewport, kLayerState, kLayerGroup };

class Retarget {
  public:
    Retarget(OdDbDatabase& database, NamedKind kind, std::wstring_view to, OdDbHandle toHandle = {})
        : m_database(database), m_store(database.store()), m_tags(database, kind), m_kind(kind),
          m_to(nameAsRead(m_store.format(), to)), m_toHandle(toHandle) {}

    void from(std::wstring_view name, OdDbHandle handle = {}) {
        if (!name.empty()) m_from.insert(text::foldCase(nameAsRead(m_store.format(), name).view()));
        if (!handle.isNull()) m_fromHandles.insert(handle.value());
    }
    // Names that begin with `prefix` begin with the target's name instead.
    void fromPrefix(std::wstring_view prefix) { m_prefix = nameAsRead(m_store.format(), prefix).view(); }

    std::size_t run() {
        const OdDbUndoScope step(m_database, L"RENAME");
        std::size_t edited = 0;
        for (RecordId id = m_store.next(RecordStore::kHead); id != kNoRecord; id = m_store.next(id)) {
            m_positions.clear();
            m_tags.forEach(id, [&](std::size_t position, const Tag& tag) {
                if (const OdString* name = renamed(tag.value)) m_positions.emplace_back(position, name);
            });
            m_handlePositions.clear();
            m_holder = Holder::kNone;
            if (!m_fromHandles.empty() && !(m_store.record(id).flags & kStructure)) {
                m_holder = holderOf(id);
                findHandles(id);
            }
            if (!m_positions.empty() || !m_handlePositions.empty()) edited += edit(id);
        }
        return edited;
    }

    // Entities that refer by name, and nothing is changed.
    std::size_t countEntities() {
        std::size_t count = 0;
        for (RecordId id = m_store.next(RecordStore::kHead); id != kNoRecord; id = m_store.next(id)) {
            const Record& record = m_store.record(id);
            if (record.section != Section::kEntities && record.section != Section::kBlocks) continue;
            if (record.type == kTypeBlock || (record.flags & (kStructure | kSubEntity))) continue;
            bool refers = false;
            m_tags.forEach(id, [&](std::size_t, const Tag& tag) { refers |= renamed(tag.value) != nullptr; });
            count += refers;
        }
        return count;
    }

  private:
    // The same few spellings come again and again. Null for a name that stays.
    const OdString* renamed(std::string_view raw) {
        auto known = m_spellings.find(raw);
        if (known == m_spellings.end()) {
            const OdString name = decodeText(m_store.format(), raw);
            std::optional<OdString> now;
            if (m_from.contains(text::foldCase(name.view()))) now = m_to;
            if (!m_prefix.empty() && text::equalNoCase(name.view().substr(0, m_prefix.size()), m_prefix))
                now = OdString(m_to.wstr() + std::wstring(name.view().substr(m_prefix.size())));
            known = m_spellings.emplace(std::string(raw), std::move(now)).first;
        }
        return known->second ? &*known->second : nullptr;
    }

    Holder holderOf(RecordId id) const {
        if (m_kind != NamedKind::kLayer && m_kind != NamedKind::kLinetype) return Holder::kNone;
        const std::string_view type = m_store.typeName(id);
        if (type == "VIEWPORT") return Holder::kViewport;
        if (type != "XRECORD") return Holder::kNone;
        if (m_tags.isLayerState(id)) return Holder::kLayerState;
        OwnTags own(m_store.format(), m_store.text(id));
        for (Tag tag; own.next(tag);)
            if (tag.code == 1)
                return trimmed(tag.value) == "AcLyLayerGroup" ? Holder::kLayerGroup : Holder::kNone;
        return Holder::kNone;
    }

    bool isListed(int code) const {
        switch (m_holder) {
        case Holder::kViewport:
            return code == 331 || code == 341;
        case Holder::kLayerState: // 330 begins a layer, 331 is its linetype
            return code == 330 || code == 331;
        case Holder::kLayerGroup:
            return code == 330;
        default:
            return false;
        }
    }

    bool isFrom(const Tag& tag) const {
        const auto handle = handleOf(m_store.format(), tag);
        return handle && m_fromHandles.contains(handle->value());
    }

    void findHandles(RecordId id) {
        TagCursor cursor = m_store.tags(id);
        std::size_t position = 0;
        bool marked = false; // behind the owner and the reactors
        for (Tag tag; cursor.next(tag); ++position) {
            marked |= tag.code == 100;
            if ((isPointer(tag.code) || tag.code == 1005 || (marked && isListed(tag.code))) && isFrom(tag))
                m_handlePositions.push_back(position);
        }
    }

    // Of a layer in a list that names the target already: where what is said about it ends, else its place.
    std::size_t endOfDoubled(const RecordEditor& record, std::size_t at) {
        const int code = record.code(at);
        const bool starts = m_holder == Holder::kLayerState && (code == 330 || code == 8);
        const bool alone = m_holder == Holder::kViewport ? code == 1003 || isListed(code)
                                                         : m_holder == Holder::kLayerGroup && code == 330;
        if (m_kind != NamedKind::kLayer || (!starts && !alone)) return at;
        const bool byName = code == 8 || code == 1003;
        std::optional<bool>& listed = m_listed[byName ? (code == 8 ? 0 : 1) : 2];
        if (!listed) listed = lists(record, code, byName);
        if (!std::exchange(listed, true).value()) return at;
        std::size_t end = at + 1;
        while (starts && end < record.size() && record.code(end) != code && record.code(end) < 1000)
            ++end;
        return end;
    }

    bool lists(const RecordEditor& record, int code, bool byName) const {
        for (std::size_t i = 0; i < record.size(); ++i) {
            if (byName ? record.code(i) != code : !isListed(record.code(i))) continue;
            if (byName ? text::equalNoCase(record.text(i).view(), m_to.view())
                       : record.value(i) == Value(m_toHandle))
                return true;
        }
        return false;
    }

    bool edit(RecordId id) {
        RecordEditor record(m_store.format(), m_store.text(id));
        std::set<std::size_t> dropped;
        m_listed = {};
        const auto put = [&](std::size_t at, const Value& value) {
            const std::size_t end = endOfDoubled(record, at);
            for (std::size_t i = at; i < end; ++i)
                dropped.insert(i);
            if (end == at) record.set(at, value);
        };
        for (const auto& [position, name] : m_positions)
            put(position, *name);
        for (const std::size_t i : m_handlePositions)
            put(i, m_toHandle);
        record.erase(dropped);
        return record.edited() && m_store.replace(id, record.bytes());
    }

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>()(s); }
    };
    OdDbDatabase& m_database;
    RecordStore& m_store;
    NameTags m_tags;
    NamedKind m_kind;
    Holder m_holder = Holder::kNone; // of the record looked at
    OdString m_to;
    OdDbHandle m_toHandle;
    std::wstring m_prefix;
    std::unordered_set<std::wstring> m_from; // folded
    std::unordered_set<std::uint64_t> m_fromHandles;
    std::array<std::optional<bool>, 3> m_listed; // the record lists the target: as 8, as 1003, by handle
    std::unordered_map<std::string, std::optional<OdString>, Hash, std::equal_to<>> m_spellings;
    std::vector<std::pair<std::size_t, const OdString*>> m_positions;
    std::vector<std::size_t> m_handlePositions;
};

} // namespace

std::optional<NamedKind> namedKindOf(OdDbObjectId record) {
    if (record.isNull()) return std::nullopt;
    const RecordStore& store = record.database()->store();
    const Record& r = store.record(record.record());
    if (r.type == kTypeBlock && r.section == Section::kBlocks) return NamedKind::kBlock;
    if (r.section != Section::kTables || r.owner == kNoRecord) return std::nullopt;
    const std::string_view type = store.typeName(record.record());
    for (const KindName& known : kKinds)
        if (type == known.type) return known.kind;
    return std::nullopt;
}

std::size_t retargetReferences(OdDbDatabase& database, NamedKind kind, std::wstring_view from,
                               std::wstring_view to) {
    if (!database.store().writable()) return 0;
    Retarget retarget(database, kind, to);
    retarget.from(from);
    return retarget.run();
}

std::size_t retargetReferences(std::span<const OdDbObjectId> from, OdDbObjectId to) {
    const auto kind = namedKindOf(to);
    const auto target = to.open<OdDbSymbolTableRecord>();
    if (!kind || !target || !to.database()->store().writable()) return 0;
    Retarget retarget(*to.database(), *kind, target->getName().view(), to.handle());
    bool any = false;
    for (const OdDbObjectId id : from) {
        if (id == to || id.database() != to.database() || namedKindOf(id) != kind) continue;
        const auto source = id.open<OdDbSymbolTableRecord>();
        if (!source) continue;
        retarget.from(source->getName().view(), id.handle());
        any = true;
    }
    return any ? retarget.run() : 0;
}

std::size_t retargetReferences(OdDbObjectId from, OdDbObjectId to) {
    return retargetReferences(std::span(&from, 1), to);
}

std::size_t countEntitiesNaming(std::span<const OdDbObjectId> records) {
    const auto kind = records.empty() ? std::nullopt : namedKindOf(records.front());
    if (!kind) return 0;
    OdDbDatabase& database = *records.front().database();
    Retarget naming(database, *kind, L"");
    for (const OdDbObjectId id : records)
        if (id.database() == &database && namedKindOf(id) == kind)
            if (const auto record = id.open<OdDbSymbolTableRecord>()) naming.from(record->getName().view());
    return naming.countEntities();
}

Tavo::ErrorStatus renameDependents(OdDbDatabase& database, std::wstring_view from, std::wstring_view to) {
    if (from == to) return Tavo::eOk;
    RecordStore& store = database.store();
    const std::wstring before = std::wstring(from) + L'|';
    const std::wstring after = std::wstring(to) + L'|';
    // All of them first: one name that can't be leaves everything as it is.
    std::vector<std::pair<RecordId, OdString>> found;
    std::set<NamedKind> kinds;
    for (const Section section : {Section::kTables, Section::kBlocks}) {
        const RecordId head = store.section(section);
        const RecordId end = head == kNoRecord ? kNoRecord : store.endOfSection(head);
        for (RecordId id = head; id != kNoRecord && id != end; id = store.next(id)) {
            const auto kind = namedKindOf({&database, id});
            if (!kind) continue;
            const OdString name = tableRecordName(store, id);
            if (!text::equalNoCase(name.view().substr(0, before.size()), before)) continue;
            OdString now(after + std::wstring(name.view().substr(before.size())));
            if (const auto status = checkTableName(store.format(), now.view()); status != Tavo::eOk)
                return status;
            TableNames& names = database.tableNames();
            const RecordId other = section == Section::kBlocks ? names.findBlock(now.view())
                                                               : names.find(store.record(id).owner, now.view());
            if (other != kNoRecord && other != id) return Tavo::eDuplicate;
            found.emplace_back(id, std::move(now));
            kinds.insert(*kind);
        }
    }
    const OdDbUndoScope step(database, L"RENAME");
    for (const auto& [id, name] : found) {
        RecordEditor record(store.format(), store.text(id));
        const bool block = store.record(id).section == Section::kBlocks; // says its name twice
        for (const std::size_t i : ownTags(record))
            if (record.code(i) == 2 || (block && record.code(i) == 3)) {
                record.set(i, name);
                if (!block) break;
            }
        if (record.edited()) store.replace(id, record.bytes());
    }
    for (const NamedKind kind : kinds) {
        Retarget retarget(database, kind, after);
        retarget.fromPrefix(before);
        retarget.run();
    }
    return Tavo::eOk;
}

} // namespace tv::dwg
