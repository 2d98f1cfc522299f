#include "platform/drawing/entities/Hyperlink.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbSymbolTable.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"

#include <array>

namespace tv::dwg {
namespace {

constexpr std::wstring_view kApplication = L"PE_URL";
constexpr std::size_t kNone = RecordEditor::npos;

// The address stands bare, the description in braces behind it and the place in the target in braces of its
// own inside those. Positions of the texts and of the closing braces in the record.
struct Places {
    std::size_t begin = kNone;
    std::size_t end = kNone;
    std::array<std::size_t, 3> texts{kNone, kNone, kNone};
    std::array<std::size_t, 3> opens{kNone, kNone, kNone};
};

Places placesIn(const RecordEditor& record) {
    Places out;
    for (std::size_t i = 0; i < record.size() && out.begin == kNone; ++i)
        if (record.code(i) == 1001 && text::equalNoCase(record.text(i).view(), kApplication)) out.begin = i;
    if (out.begin == kNone) return out;
    std::size_t depth = 0;
    for (out.end = out.begin + 1; out.end < record.size() && record.code(out.end) != 1001; ++out.end) {
        const int code = record.code(out.end);
        if (code == 1002) {
            if (trimmed(record.raw(out.end)) != "{") {
                depth -= depth > 0;
            } else if (++depth < out.opens.size() && out.opens[depth] == kNone) {
                out.opens[depth] = out.end;
            }
        } else if (code == 1000 && depth < out.texts.size() && out.texts[depth] == kNone) {
            out.texts[depth] = out.end;
        }
    }
    return out;
}

// Puts the text on its level, with the braces the level needs.
bool put(RecordEditor& record, std::size_t level, const OdString& text) {
    const Places places = placesIn(record);
    if (places.texts[level] != kNone) return record.set(places.texts[level], text);
    if (text.isEmpty()) return true;
    if (places.opens[level] != kNone) return record.insert(places.opens[level] + 1, 1000, text);
    std::size_t at = places.begin + 1;
    if (level > 0) {
        if (level > 1 && places.opens[level - 1] == kNone && !record.insert(places.end, 1002, OdString(L"{")))
            return false;
        const Places now = placesIn(record);
        if (level > 1 && places.opens[level - 1] == kNone && !record.insert(now.end, 1002, OdString(L"}")))
            return false;
        at = now.texts[level - 1] != kNone ? now.texts[level - 1] + 1
             : level > 1                   ? now.opens[level - 1] + 1
                                           : now.end;
        return record.insert(at, 1002, OdString(L"{")) && record.insert(at + 1, 1000, text) &&
               record.insert(at + 2, 1002, OdString(L"}"));
    }
    return record.insert(at, 1000, text);
}

Tavo::ErrorStatus writable(OdDbObjectId id) {
    if (id.isErased()) return Tavo::eWasErased;
    if (!id.open<OdDbEntity>()) return Tavo::eWrongType;
    return id.database()->store().writable() ? Tavo::eOk : Tavo::eReadOnly;
}

} // namespace

std::optional<Hyperlink> hyperlinkOf(OdDbObjectId entity) {
    if (entity.isErased()) return std::nullopt;
    const RecordStore& store = entity.database()->store();
    // Few entities have one: the others are only looked through.
    bool linked = false;
    TagCursor tags = store.tags(entity.record());
    for (Tag tag; !linked && tags.next(tag);)
        linked = tag.code == 1001 && text::equalNoCase(textOf(store.format(), tag).view(), kApplication);
    if (!linked) return std::nullopt;
    const RecordEditor record(store.format(), store.text(entity.record()));
    const Places places = placesIn(record);
    if (places.begin == kNone) return std::nullopt;
    const auto text = [&](std::size_t level) {
        return places.texts[level] == kNone ? OdString() : record.text(places.texts[level]);
    };
    return Hyperlink{text(0), text(1), text(2)};
}

Tavo::ErrorStatus setHyperlink(OdDbObjectId entity, const Hyperlink& link) {
    if (const auto status = writable(entity); status != Tavo::eOk) return status;
    OdDbDatabase& database = *entity.database();
    if (const auto status = database.require(OdDb::Feature::kExtendedData); status != Tavo::eOk) return status;
    const OdDbUndoScope step(database, L"HYPERLINK");
    RecordStore& store = database.store();
    RecordEditor record(store.format(), store.text(entity.record()));
    if (placesIn(record).begin == kNone) {
        if (database.newRegApp(kApplication).isNull()) return Tavo::eNotHandled;
        if (!record.insert(record.size(), 1001, OdString(kApplication))) return Tavo::eInvalidInput;
    }
    if (!put(record, 0, link.url) || !put(record, 1, link.description) || !put(record, 2, link.subLocation))
        return Tavo::eInvalidInput;
    if (record.edited()) store.replace(entity.record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus removeHyperlink(OdDbObjectId entity) {
    if (const auto status = writable(entity); status != Tavo::eOk) return status;
    RecordStore& store = entity.database()->store();
    RecordEditor record(store.format(), store.text(entity.record()));
    const Places places = placesIn(record);
    if (places.begin == kNone) return Tavo::eOk;
    for (std::size_t i = places.end; i-- > places.begin;)
        record.erase(i);
    store.replace(entity.record(), record.bytes());
    return Tavo::eOk;
}

} // namespace tv::dwg
