#include "platform/drawing/OdDbDictionary.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Unicode.h"

using namespace tv::dwg;

namespace {

bool isReference(int code) { return code == 350 || code == 360; }

// The position of the name's tag; its handle's tag follows.
std::size_t findName(const RecordEditor& record, std::wstring_view name) {
    for (const std::size_t i : ownTags(record))
        if (record.code(i) == 3 && i + 1 < record.size() && isReference(record.code(i + 1)) &&
            tv::text::equalNoCase(record.text(i).view(), name))
            return i;
    return RecordEditor::npos;
}

} // namespace

std::vector<OdDbDictionary::Entry> OdDbDictionary::entries() const {
    std::vector<Entry> out;
    OwnTags own(format(), database()->store().text(objectId().record()));
    OdString name;
    bool named = false;
    for (Tag tag; own.next(tag);) {
        if (named && isReference(tag.code))
            if (const auto handle = handleOf(format(), tag)) out.push_back({name, *handle});
        named = tag.code == 3;
        if (named) name = textOf(format(), tag);
    }
    return out;
}

OdDbObjectId OdDbDictionary::getAt(std::wstring_view name) const {
    for (const Entry& entry : entries())
        if (tv::text::equalNoCase(entry.name.view(), name)) return database()->getOdDbObjectId(entry.handle);
    return {};
}

bool OdDbDictionary::has(std::wstring_view name) const {
    for (const Entry& entry : entries())
        if (tv::text::equalNoCase(entry.name.view(), name)) return true;
    return false;
}

OdDbObjectId OdDbDictionary::defaultId() const { return idAt(340); }

Tavo::ErrorStatus OdDbDictionary::remove(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    const std::size_t place = findName(record, name);
    if (place == RecordEditor::npos) return Tavo::eKeyNotFound;
    record.erase(place);
    record.erase(place);
    store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbDictionary::setAt(std::wstring_view name, OdDbObjectId object) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (name.empty() || object.isErased() || object.database() != database() || object.handle().isNull())
        return Tavo::eInvalidInput;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    const std::size_t place = findName(record, name);
    if (place != RecordEditor::npos) {
        record.set(place + 1, object.handle());
    } else {
        // Behind the last entry, else behind the dictionary's own settings; a default entry stands behind them
        // all.
        std::size_t end = 0;
        for (const std::size_t i : ownTags(record)) {
            const int code = record.code(i);
            if (isReference(code) || code == 280 || code == 281 || code == 330 || code == 5 ||
                (code == 100 && record.text(i) == L"AcDbDictionary"))
                end = i + 1;
        }
        if (end == 0) end = 1;
        if (!record.insert(end, 3, OdString(name)) || !record.insert(end + 1, 350, object.handle()))
            return Tavo::eInvalidInput;
    }
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}
