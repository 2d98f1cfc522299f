#include "platform/drawing/UsageData.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/NameTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

#include <string_view>
#include <unordered_map>

namespace tv::dwg {
namespace {

constexpr const char* kTables[kNamedKinds] = {"LAYER",        "LTYPE", "STYLE", "DIMSTYLE",
                                              "BLOCK_RECORD", "APPID", "VIEW",  "UCS"};

// Whether a record of a text file may end with extended data, by its last tag: only comments stand behind
// those.
bool endsWithXData(const DxfFormat& format, std::string_view record) {
    const auto lineBefore = [&](std::size_t end) {
        const std::size_t at = end == 0 ? std::string_view::npos : record.rfind(format.lineBreak, end - 1);
        return at == std::string_view::npos ? 0 : at + 1;
    };
    std::size_t end = record.size();
    if (end > 0 && record[end - 1] == format.lineBreak) --end;
    const std::size_t value = lineBefore(end);
    if (value == 0) return false;
    const std::size_t code = lineBefore(value - 1);
    // Group codes from 1000 on have four digits, those before fewer.
    const std::string_view last = trimmed(record.substr(code, value - 1 - code));
    return last.size() >= 4 || last == "999";
}

class Collector {
  public:
    Collector(const OdDbDatabase& database, NamedKind kind, std::vector<bool>& used)
        : m_database(const_cast<OdDbDatabase&>(database)), m_store(database.store()), m_kind(kind),
          m_used(used) {
        m_table = m_store.table(kTables[static_cast<std::size_t>(kind)]);
    }

    void run() {
        always();
        if (m_kind == NamedKind::kLayer)
            layers();
        else
            everything();
        if (m_kind == NamedKind::kDimStyle) children();
    }

  private:
    RecordId find(std::wstring_view name) {
        if (m_table != kNoRecord) return m_database.tableNames().find(m_table, name);
        return m_kind == NamedKind::kBlock ? m_database.tableNames().findBlock(name) : kNoRecord;
    }
    // Spellings lead to records; most often the same one follows.
    RecordId findRaw(std::string_view raw) {
        if (raw == m_lastRaw) return m_lastFound;
        m_lastRaw = raw;
        const auto known = m_spellings.find(raw);
        if (known != m_spellings.end()) return m_lastFound = known->second;
        m_lastFound = find(decodeText(m_store.format(), raw).view());
        m_spellings.emplace(raw, m_lastFound);
        return m_lastFound;
    }
    void use(RecordId id) {
        if (id != kNoRecord) m_used[id] = true;
    }

    void always() {
        switch (m_kind) {
        case NamedKind::kLayer:
            use(find(L"0"));
            break;
        case NamedKind::kLinetype:
            for (const wchar_t* name : {L"ByLayer", L"ByBlock", L"Continuous"})
                use(find(name));
            break;
        case NamedKind::kTextStyle:
            use(find(L"Standard"));
            break;
        case NamedKind::kBlock:
            if (const auto blocks = m_database.getBlockTableId().open<OdDbBlockTable>())
                blocks->forEach([&](OdDbObjectId id) {
                    if (id.open<OdDbBlockTableRecord>()->isLayout()) use(id.record());
                });
            break;
        default:
            break;
        }
    }

    // A million entities name a layer each: only that tag is read of them.
    void layers() {
        const DxfFormat& format = m_store.format();
        const bool text = format.encoding == Encoding::kText;
        NameTags tags(m_database, m_kind, false);
        for (RecordId id = m_store.next(RecordStore::kHead); id != kNoRecord; id = m_store.next(id)) {
            const Record& record = m_store.record(id);
            if (record.flags & kHeaderVariable) {
                tags.forEach(id, [&](std::size_t, const Tag& tag) { use(findRaw(tag.value)); });
                continue;
            }
            if (record.flags & kStructure) continue;
            const std::string_view bytes = m_store.text(id);
            TagCursor cursor(format, bytes);
            bool group = false;
            if (record.section == Section::kEntities || record.section == Section::kBlocks)
                for (Tag tag; cursor.next(tag) && tag.code != 1001;) {
                    if (tag.code == 102) group = trimmed(tag.value).starts_with('{');
                    if (tag.code != 8 || group) continue;
                    use(findRaw(tag.value));
                    break;
                }
            if (text && !endsWithXData(format, bytes)) continue;
            for (Tag tag; cursor.next(tag);)
                if (tag.code == 1003) use(findRaw(tag.value));
        }
    }

    void everything() {
        NameTags tags(m_database, m_kind, false);
        const RecordId standard = find(L"Standard");
        for (RecordId id = m_store.next(RecordStore::kHead); id != kNoRecord; id = m_store.next(id)) {
            bool named = false;
            tags.forEach(id, [&](std::size_t, const Tag& tag) {
                named = true;
                useFrom(id, findRaw(tag.value));
            });
            if (!named && tags.missingMeansStandard(id)) use(standard);
            if (m_store.record(id).flags & (kStructure | kHeaderVariable)) continue;
            TagCursor cursor = m_store.tags(id);
            for (Tag tag; cursor.next(tag);)
                if ((tag.code >= 340 && tag.code <= 349) || tag.code == 1005) usePointer(id, tag);
        }
    }

    void usePointer(RecordId from, const Tag& tag) {
        const auto handle = handleOf(m_store.format(), tag);
        if (!handle || handle->isNull() || m_table == kNoRecord) return;
        const RecordId to = m_store.findHandle(handle->value());
        if (to != kNoRecord && to != from && m_store.record(to).owner == m_table) useFrom(from, to);
    }

    void useFrom(RecordId from, RecordId to) {
        if (to == kNoRecord || m_used[to]) return;
        if (m_kind == NamedKind::kBlock && m_store.record(from).section == Section::kBlocks) {
            const RecordId definition = m_store.record(from).owner;
            const OdString name = tableRecordName(m_store, to);
            if (definition != kNoRecord && m_database.tableNames().findBlock(name.view()) == definition) return;
        }
        use(to);
    }

    void children() {
        if (m_table == kNoRecord) return;
        const RecordId end = m_store.endOfTable(m_table);
        for (RecordId id = m_store.next(m_table); id != end; id = m_store.next(id)) {
            const OdString name = tableRecordName(m_store, id);
            const std::size_t dollar = name.view().rfind(L'$');
            if (dollar == std::wstring_view::npos || dollar + 2 != name.view().size()) continue;
            if (const RecordId parent = find(name.view().substr(0, dollar));
                parent != kNoRecord && m_used[parent])
                use(id);
        }
    }

    OdDbDatabase& m_database;
    const RecordStore& m_store;
    NamedKind m_kind;
    std::vector<bool>& m_used;
    RecordId m_table = kNoRecord;
    std::string_view m_lastRaw;
    RecordId m_lastFound = kNoRecord;
    // Views of the records' bytes, which stay while the pass goes on.
    std::unordered_map<std::string_view, RecordId> m_spellings;
};

} // namespace

void UsageData::generate(const OdDbDatabase& database, NamedKind kind) {
    std::vector<bool>& used = m_used[static_cast<std::size_t>(kind)];
    used.assign(database.store().recordCount(), false);
    Collector(database, kind, used).run();
}

bool UsageData::inUse(OdDbObjectId record) const {
    const auto kind = namedKindOf(record);
    if (!kind) return false;
    const std::vector<bool>& used = m_used[static_cast<std::size_t>(*kind)];
    return record.record() < used.size() && used[record.record()];
}

} // namespace tv::dwg
