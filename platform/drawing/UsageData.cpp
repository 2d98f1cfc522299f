#include "platform/drawing/UsageData.h"

#include "platform/drawing/OdDbBlockTable.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/NameTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/SpellingMap.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/Unicode.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>

namespace tv::dwg {
namespace {

// The first line feed of [p, end), or null. Most lines of an entity are shorter than what a call takes.
const char* findLineFeed(const char* p, const char* end) {
    constexpr bool lowFirst = std::endian::native == std::endian::little;
    for (; lowFirst && end - p >= 8; p += 8) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, p, 8);
        const std::uint64_t other = bytes ^ 0x0A0A0A0A0A0A0A0AULL; // a line feed is zero here
        const std::uint64_t zero = (other - 0x0101010101010101ULL) & ~other & 0x8080808080808080ULL;
        if (zero != 0) return p + std::countr_zero(zero) / 8;
    }
    return static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
}

// The first tag of code 8 of a text record whose lines up to there are as most programs write them: group codes
// of up to two digits or 100, ended by line feeds. Nothing where the record has to be read tag by tag.
std::optional<std::string_view> plainLayer(std::string_view record) {
    const char* p = record.data();
    const char* const end = p + record.size();
    while (end - p >= 6) {
        int code = 0;
        while (*p == ' ' && end - p > 5)
            ++p;
        if (static_cast<unsigned char>(*p - '0') >= 10) return std::nullopt;
        for (int digits = 0; digits < 3 && static_cast<unsigned char>(*p - '0') < 10; ++digits)
            code = code * 10 + (*p++ - '0');
        if (code > 100) return std::nullopt;
        if (*p == '\r') ++p;
        if (*p++ != '\n') return std::nullopt;
        const char* const stop = findLineFeed(p, end);
        if (!stop) return std::nullopt;
        if (code == 8) {
            const bool pair = stop != p && stop[-1] == '\r';
            return std::string_view(p, static_cast<std::size_t>(stop - p) - pair);
        }
        p = stop + 1;
    }
    return std::nullopt;
}

constexpr const char* kTables[kNamedKinds] = {"LAYER",        "LTYPE", "STYLE", "DIMSTYLE",
                                              "BLOCK_RECORD", "APPID", "VIEW",  "UCS"};

class Collector {
  public:
    Collector(const OdDbDatabase& database, NamedKind kind, std::vector<bool>& used)
        : m_database(const_cast<OdDbDatabase&>(database)), m_store(database.store()), m_kind(kind),
          m_tags(database, kind, false), m_used(used) {
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
        TableNames& names = m_database.tableNames();
        const RecordId record = m_table == kNoRecord ? kNoRecord : names.find(m_table, name);
        return record == kNoRecord && m_kind == NamedKind::kBlock ? names.findBlock(name) : record;
    }
    // By the spelling in the file.
    RecordId findRaw(std::string_view raw) {
        return m_spellings.get(
            raw, [&](std::string_view name) { return find(decodeText(m_store.format(), name).view()); });
    }
    // Counts a name as used: once per spelling, when it is found.
    auto counting() {
        return [this](std::string_view name) {
            const RecordId id = find(decodeText(m_store.format(), name).view());
            use(id);
            return id;
        };
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
                    const auto record = id.open<OdDbBlockTableRecord>();
                    if (record && record->isLayout()) use(id.record());
                });
            break;
        default:
            break;
        }
    }

    // A million entities name a layer each: only that tag is read of them.
    void layers() {
        const DxfFormat& format = m_store.format();
        const auto none = [](std::string_view) { return std::optional<std::string_view>(); };
        const auto text = [&](std::string_view bytes) { return TextScanner(bytes, format.lineBreak); };
        const auto binary = [&](std::string_view bytes) {
            return BinaryScanner(bytes, format.encoding == Encoding::kBinaryR12);
        };
        if (format.encoding != Encoding::kText)
            layersBy(none, binary);
        else if (format.lineBreak == '\n')
            layersBy(plainLayer, text);
        else
            layersBy(none, text);
        m_spellings.flush(counting());
    }

    // `plain` gives the layer of the records it can, `scan` the tags of the others.
    template <class Plain, class Scan>
    void layersBy(Plain&& plain, Scan&& scan) {
        for (RecordId id = m_store.next(RecordStore::kHead); id != kNoRecord; id = m_store.next(id)) {
            const Record& record = m_store.record(id);
            if ((record.section == Section::kEntities || record.section == Section::kBlocks) &&
                !(record.flags & kStructure)) {
                if (const auto layer = plain(m_store.text(id))) {
                    m_spellings.ask(*layer, counting());
                    if (record.flags & kLayerInData) otherLayers(id);
                    continue;
                }
                auto scanner = scan(m_store.text(id));
                bool group = false;
                for (Tag tag; scanner.next(tag) == ScanResult::kTag;) {
                    if (tag.code == 8 && !group) {
                        m_spellings.ask(tag.value, counting());
                        break;
                    }
                    if (tag.code <= 101) continue;
                    if (tag.code == 1001) break;
                    if (tag.code == 102) group = trimmed(tag.value).starts_with('{');
                }
            }
            if (record.flags & (kHeaderVariable | kLayerInData)) otherLayers(id);
        }
    }

    // What header variables and extended data name.
    void otherLayers(RecordId id) {
        m_tags.forEach(id, [&](std::size_t, const Tag& tag) { m_spellings.get(tag.value, counting()); });
    }

    void everything() {
        const RecordId standard = find(L"Standard");
        for (RecordId id = m_store.next(RecordStore::kHead); id != kNoRecord; id = m_store.next(id)) {
            bool named = false;
            m_tags.forEach(id, [&](std::size_t, const Tag& tag) {
                named = true;
                useFrom(id, findRaw(tag.value));
            });
            if (!named && m_tags.missingMeansStandard(id)) use(standard);
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
        if (to != kNoRecord && to != from && m_store.firstTableLike(m_store.record(to).owner) == m_table)
            useFrom(from, to);
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
        const auto table = OdDbObjectId(&m_database, m_table).open<OdDbSymbolTable>();
        if (!table) return;
        table->forEach([&](OdDbObjectId id) {
            const OdString name = table->nameOf(id);
            const std::size_t dollar = name.view().rfind(L'$');
            if (dollar == std::wstring_view::npos || dollar + 2 != name.view().size()) return;
            if (const RecordId parent = find(name.view().substr(0, dollar));
                parent != kNoRecord && m_used[parent])
                use(id.record());
        });
    }

    OdDbDatabase& m_database;
    const RecordStore& m_store;
    NamedKind m_kind;
    NameTags m_tags;
    std::vector<bool>& m_used;
    RecordId m_table = kNoRecord;
    SpellingMap m_spellings; // the records' bytes stay while the pass goes on
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
