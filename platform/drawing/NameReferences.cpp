#include "platform/drawing/NameReferences.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/dxf/NameTags.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/text/Unicode.h"

#include <string>
#include <unordered_map>

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

class Retarget {
  public:
    Retarget(OdDbDatabase& database, NamedKind kind, std::wstring_view from, std::wstring_view to)
        : m_database(database), m_store(database.store()), m_tags(database, kind), m_from(from), m_to(to) {}

    void handles(OdDbHandle from, OdDbHandle to) {
        m_fromHandle = from;
        m_toHandle = to;
    }

    std::size_t run() {
        const OdDbUndoScope step(m_database, L"RENAME");
        std::size_t edited = 0;
        for (RecordId id = m_store.next(RecordStore::kHead); id != kNoRecord; id = m_store.next(id)) {
            m_positions.clear();
            m_tags.forEach(id, [&](std::size_t position, const Tag& tag) {
                if (isFrom(tag.value)) m_positions.push_back(position);
            });
            m_handlePositions.clear();
            if (!m_fromHandle.isNull() && !(m_store.record(id).flags & kStructure)) findHandles(id);
            if (!m_positions.empty() || !m_handlePositions.empty()) edited += edit(id);
        }
        return edited;
    }

  private:
    // The same few spellings come again and again.
    bool isFrom(std::string_view raw) {
        const auto known = m_spellings.find(raw);
        if (known != m_spellings.end()) return known->second;
        const bool from = text::equalNoCase(decodeText(m_store.format(), raw).view(), m_from);
        m_spellings.emplace(std::string(raw), from);
        return from;
    }

    void findHandles(RecordId id) {
        TagCursor cursor = m_store.tags(id);
        std::size_t position = 0;
        for (Tag tag; cursor.next(tag); ++position)
            if ((isPointer(tag.code) || tag.code == 1005) && handleOf(m_store.format(), tag) == m_fromHandle)
                m_handlePositions.push_back(position);
    }

    bool edit(RecordId id) {
        RecordEditor record(m_store.format(), m_store.text(id));
        for (const std::size_t i : m_positions)
            record.set(i, m_to);
        for (const std::size_t i : m_handlePositions)
            record.set(i, m_toHandle);
        return record.edited() && m_store.replace(id, record.bytes());
    }

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>()(s); }
    };
    OdDbDatabase& m_database;
    RecordStore& m_store;
    NameTags m_tags;
    std::wstring m_from;
    OdString m_to;
    OdDbHandle m_fromHandle;
    OdDbHandle m_toHandle;
    std::unordered_map<std::string, bool, Hash, std::equal_to<>> m_spellings;
    std::vector<std::size_t> m_positions;
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
    return !database.store().writable() ? 0 : Retarget(database, kind, from, to).run();
}

std::size_t retargetReferences(OdDbObjectId from, OdDbObjectId to) {
    const auto kind = namedKindOf(from);
    if (!kind || kind != namedKindOf(to) || from.database() != to.database() || from == to) return 0;
    const auto source = from.open<OdDbSymbolTableRecord>();
    const auto target = to.open<OdDbSymbolTableRecord>();
    if (!source || !target || !from.database()->store().writable()) return 0;
    Retarget retarget(*from.database(), *kind, source->getName().view(), target->getName().view());
    retarget.handles(from.handle(), to.handle());
    return retarget.run();
}

} // namespace tv::dwg
