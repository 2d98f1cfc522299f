#include "kxgui/controls/RecordItems.h"

#include "kxgui/frame/ColorNames.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/OdDbStyleTables.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Collation.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Pictures.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

namespace kx::controls {
namespace {

using tv::dwg::RecordId;
using tv::ui::ListItem;

std::uint64_t g_read = 0;

OdDbObjectId tableOf(const OdDbDatabase& database, RecordKind kind) {
    switch (kind) {
    case RecordKind::layers:
        return database.getLayerTableId();
    case RecordKind::linetypes:
        return database.getLinetypeTableId();
    case RecordKind::textStyles:
        return database.getTextStyleTableId();
    case RecordKind::dimStyles:
        break;
    }
    return database.getDimStyleTableId();
}

tv::ui::Picture pictureOf(const OdDbLayerTableRecord& layer) {
    return tv::ui::layerPicture(
        {layer.isOff(), layer.isFrozen(), layer.isLocked(), frame::swatchRgb(layer.color().rgb())});
}

// "ISO-25$2": the variant of a style for one kind of dimension.
bool isForOneKind(std::wstring_view name) {
    return name.size() > 2 && name[name.size() - 2] == L'$' && name.back() >= L'0' && name.back() <= L'9';
}

// Programs keep things of their own on it.
constexpr std::wstring_view kHiddenLayer = L"*Information Hidden Layer";

// Null when the record isn't listed.
std::optional<ListItem> itemOf(OdDbObjectId id, RecordKind kind) {
    ++g_read;
    const auto record = id.open<OdDbSymbolTableRecord>();
    if (!record || record->isDependent()) return std::nullopt;
    ListItem item{record->getName().wstr(), itemData(id), nullptr};
    if (item.text.empty()) return std::nullopt;
    switch (kind) {
    case RecordKind::layers: {
        const auto layer = std::dynamic_pointer_cast<OdDbLayerTableRecord>(record);
        if (!layer || tv::text::equalNoCase(item.text, kHiddenLayer)) return std::nullopt;
        item.picture = pictureOf(*layer);
        break;
    }
    case RecordKind::linetypes: {
        const auto linetype = std::dynamic_pointer_cast<OdDbLinetypeTableRecord>(record);
        const auto is = [&](std::wstring_view name) { return tv::text::equalNoCase(item.text, name); };
        if (!linetype || is(L"ByLayer") || is(L"ByBlock")) return std::nullopt;
        item.picture = tv::ui::dashPicture(linetype->dashes());
        break;
    }
    case RecordKind::textStyles: {
        const auto style = std::dynamic_pointer_cast<OdDbTextStyleTableRecord>(record);
        if (!style || style->isShapeFile()) return std::nullopt;
        break;
    }
    case RecordKind::dimStyles:
        if (isForOneKind(item.text)) return std::nullopt;
        break;
    }
    return item;
}

// One kind of records of one drawing: the list, and the keys that keep it in order.
class RecordList {
  public:
    RecordList(RecordKind kind, OdDbObjectId table) : m_kind(kind), m_table(table) {}

    bool has(RecordId record) const { return m_listed.count(record) > 0; }
    void changed(RecordId record) { m_changed.insert(record); }

    const tv::ui::SharedItems& items(OdDbDatabase& database) {
        const bool another =
            m_language != VORD_MSGFunction::GetCurrentLanguageId() || m_table != tableOf(database, m_kind);
        // Finding places one by one stops paying when many records changed.
        if (!m_items || another || m_changed.size() > 16 + m_keys.size() / 64)
            readAll(database);
        else if (!m_changed.empty())
            readChanged(database);
        m_changed.clear();
        return m_items;
    }

  private:
    using Items = std::vector<ListItem>;

    tv::text::Collator collator() const {
        return tv::text::Collator({.digitsAsNumbers = true, .ignoreCase = true}, m_language);
    }

    void readAll(OdDbDatabase& database) {
        m_language = VORD_MSGFunction::GetCurrentLanguageId();
        m_table = tableOf(database, m_kind);
        m_listed.clear();
        m_keys.clear();
        const tv::text::Collator order = collator();
        Items found;
        std::vector<std::pair<std::string, std::size_t>> sorted;
        if (const auto table = m_table.open<OdDbSymbolTable>())
            table->forEach([&](OdDbObjectId id) {
                m_listed.insert(id.record());
                if (auto item = itemOf(id, m_kind)) {
                    sorted.emplace_back(order.sortKey(item->text), found.size());
                    found.push_back(std::move(*item));
                }
            });
        std::sort(sorted.begin(), sorted.end());
        auto items = std::make_shared<Items>();
        items->reserve(found.size());
        m_keys.reserve(found.size());
        for (auto& [key, at] : sorted) {
            items->push_back(std::move(found[at]));
            m_keys.push_back(std::move(key));
        }
        m_items = std::move(items);
    }

    // Others may show the old list: what changed is changed in a copy.
    void readChanged(OdDbDatabase& database) {
        const tv::text::Collator order = collator();
        auto items = std::make_shared<Items>(*m_items);
        for (const RecordId record : m_changed) {
            const OdDbObjectId id(&database, record);
            const auto old = std::find_if(items->begin(), items->end(),
                                          [data = itemData(id)](const ListItem& i) { return i.data == data; });
            auto item = id.isErased() ? std::nullopt : itemOf(id, m_kind);
            if (id.isErased())
                m_listed.erase(record);
            else
                m_listed.insert(record);
            if (old != items->end() && item && old->text == item->text) {
                *old = std::move(*item);
                continue;
            }
            if (old != items->end()) {
                m_keys.erase(m_keys.begin() + (old - items->begin()));
                items->erase(old);
            }
            if (!item) continue;
            std::string key = order.sortKey(item->text);
            const auto place = std::upper_bound(m_keys.begin(), m_keys.end(), key);
            items->insert(items->begin() + (place - m_keys.begin()), std::move(*item));
            m_keys.insert(place, std::move(key));
        }
        m_items = std::move(items);
    }

    RecordKind m_kind;
    OdDbObjectId m_table;
    tv::ui::SharedItems m_items;
    std::vector<std::string> m_keys; // of the items, in their order
    std::unordered_set<RecordId> m_listed, m_changed;
    std::uint16_t m_language = 0;
};

// The lists of a drawing, as long as it is open.
class DrawingLists : public OdDbDatabaseReactor {
  public:
    static DrawingLists& of(OdDbDatabase& database) {
        auto& lists = all()[&database];
        if (!lists) {
            lists = std::make_unique<DrawingLists>();
            database.addReactor(lists.get());
        }
        return *lists;
    }

    tv::ui::SharedItems items(OdDbDatabase& database, RecordKind kind) {
        auto& list = m_lists[static_cast<std::size_t>(kind)];
        if (!list) list.emplace(kind, OdDbObjectId());
        return list->items(database);
    }

    void objectModified(OdDbDatabase&, OdDbObjectId id) override { changed(id.record()); }
    void objectErased(OdDbDatabase&, OdDbObjectId id) override { changed(id.record()); }
    void objectAppended(OdDbDatabase& database, OdDbObjectId id) override {
        if (database.store().record(id.record()).section != tv::dwg::Section::kTables) return;
        const OdDbObjectId table = id.openObject() ? id.openObject()->ownerId() : OdDbObjectId();
        for (std::size_t i = 0; i < m_lists.size(); ++i)
            if (m_lists[i] && table == tableOf(database, static_cast<RecordKind>(i)))
                m_lists[i]->changed(id.record());
    }
    void goodbye(OdDbDatabase& database) override {
        database.removeReactor(this);
        all().erase(&database); // ends this object
    }

  private:
    // Never destroyed: drawings may live longer than what is destroyed at the program's end.
    static std::unordered_map<const OdDbDatabase*, std::unique_ptr<DrawingLists>>& all() {
        static auto& lists = *new std::unordered_map<const OdDbDatabase*, std::unique_ptr<DrawingLists>>;
        return lists;
    }

    void changed(RecordId record) {
        for (auto& list : m_lists)
            if (list && list->has(record)) list->changed(record);
    }

    std::array<std::optional<RecordList>, 4> m_lists;
};

} // namespace

tv::ui::SharedItems recordItems(OdDbDatabase& database, RecordKind kind) {
    return DrawingLists::of(database).items(database, kind);
}

std::uintptr_t itemData(OdDbObjectId object) {
    return object.isNull() ? 0 : std::uintptr_t{object.record()} + 1;
}

OdDbObjectId objectOfItem(OdDbDatabase* database, std::uintptr_t data) {
    // Entries that are no records have data beyond those of all records.
    const bool record = database && data > 0 && data <= database->store().recordCount();
    return record ? OdDbObjectId(database, static_cast<RecordId>(data - 1)) : OdDbObjectId();
}

std::uint64_t recordsRead() { return g_read; }

} // namespace kx::controls
