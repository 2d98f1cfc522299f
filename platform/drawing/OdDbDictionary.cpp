#include "platform/drawing/OdDbDictionary.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/Subclass.h"
#include "platform/text/Unicode.h"

#include <unordered_set>

using namespace tv::dwg;

namespace {

bool isReference(int code) { return code == 350 || code == 360; }

// The position of the name's tag; its handle's tag follows.
std::size_t findName(const DxfFormat& format, const RecordEditor& record, std::wstring_view name) {
    const OdString meant = nameAsRead(format, name);
    for (const std::size_t i : ownTags(record))
        if (record.code(i) == 3 && i + 1 < record.size() && isReference(record.code(i + 1)) &&
            tv::text::equalNoCase(record.text(i).view(), meant.view()))
            return i;
    return RecordEditor::npos;
}

} // namespace

std::vector<OdDbObjectId> tv::dwg::ownedTree(OdDbObjectId object) {
    std::vector<OdDbObjectId> out;
    std::unordered_set<OdDbObjectId> seen;
    std::vector<OdDbObjectId> open = {object};
    while (!open.empty()) {
        const OdDbObjectId id = open.back();
        open.pop_back();
        const OdDbObjectPtr opened = id.openObject();
        if (!opened || !seen.insert(id).second) continue;
        out.push_back(id);
        if (const OdDbObjectId extension = opened->extensionDictionary(); !extension.isNull())
            open.push_back(extension);
        const auto dictionary = std::dynamic_pointer_cast<OdDbDictionary>(opened);
        if (!dictionary) continue;
        for (const OdDbDictionary::Entry& entry : dictionary->entries()) {
            const OdDbObjectPtr below = id.database()->getOdDbObjectId(entry.handle).openObject();
            // A name for somebody else's object is no reason to take that away.
            if (below && (below->ownerId() == id || below->ownerId().isNull()))
                open.push_back(below->objectId());
        }
    }
    return out;
}

template <class Visit>
void OdDbDictionary::walk(Visit&& visit) const {
    OwnTags own(format(), database()->store().text(objectId().record()));
    Tag name;
    bool named = false;
    for (Tag tag; own.next(tag);) {
        if (named && isReference(tag.code) && visit(name, tag)) return;
        named = tag.code == 3;
        if (named) name = tag;
    }
}

std::vector<OdDbDictionary::Entry> OdDbDictionary::entries() const {
    std::vector<Entry> out;
    walk([&](const Tag& name, const Tag& reference) {
        if (const auto handle = handleOf(format(), reference)) out.push_back({textOf(format(), name), *handle});
        return false;
    });
    return out;
}

std::size_t OdDbDictionary::numEntries() const {
    std::size_t count = 0;
    walk([&](const Tag&, const Tag& reference) {
        count += handleOf(format(), reference).has_value();
        return false;
    });
    return count;
}

OdDbDictionaryIteratorPtr OdDbDictionary::newIterator() const {
    return std::make_shared<OdDbDictionaryIterator>(*database(), entries());
}

OdDbObjectId OdDbDictionary::getAt(std::wstring_view name) const {
    OdDbObjectId out;
    const OdString meant = nameAsRead(format(), name);
    walk([&](const Tag& known, const Tag& reference) {
        const auto handle = handleOf(format(), reference);
        if (!handle || !tv::text::equalNoCase(textOf(format(), known).view(), meant.view())) return false;
        out = database()->getOdDbObjectId(*handle);
        return true;
    });
    return out;
}

bool OdDbDictionary::has(std::wstring_view name) const {
    bool found = false;
    const OdString meant = nameAsRead(format(), name);
    walk([&](const Tag& known, const Tag& reference) {
        return found = handleOf(format(), reference) &&
                       tv::text::equalNoCase(textOf(format(), known).view(), meant.view());
    });
    return found;
}

OdString OdDbDictionary::nameAt(OdDbObjectId object) const {
    OdString out;
    if (object.isNull() || object.handle().isNull()) return out;
    walk([&](const Tag& name, const Tag& reference) {
        if (handleOf(format(), reference) != object.handle()) return false;
        out = textOf(format(), name);
        return true;
    });
    return out;
}

OdDbObjectId OdDbDictionary::defaultId() const { return idAt(340); }

Tavo::ErrorStatus OdDbDictionary::remove(std::wstring_view name) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    const std::size_t place = findName(format(), record, name);
    if (place == RecordEditor::npos) return Tavo::eKeyNotFound;
    record.erase(place);
    record.erase(place);
    store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbDictionary::eraseEntry(std::wstring_view name) {
    const OdDbObjectId object = getAt(name);
    const OdDbUndoScope step(*database(), L"ERASE");
    if (const auto status = remove(name); status != Tavo::eOk) return status;
    if (object.isNull() || object == objectId()) return Tavo::eOk;
    for (const OdDbObjectId id : ownedTree(object))
        if (const auto owned = id.openObject(OdDb::kForWrite); owned && id != objectId()) owned->erase();
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbDictionary::setAt(std::wstring_view name, OdDbObjectId object) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (name.empty() || object.isErased() || object.database() != database() || object.handle().isNull())
        return Tavo::eInvalidInput;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    const std::size_t place = findName(format(), record, name);
    if (place != RecordEditor::npos) {
        record.set(place + 1, object.handle());
    } else {
        // Behind the last entry, else behind the dictionary's own settings; a default entry stands behind them
        // all.
        std::size_t end = 0;
        int reference = isTreatElementsAsHard() ? 360 : 350;
        for (const std::size_t i : ownTags(record)) {
            const int code = record.code(i);
            if (isReference(code)) reference = code; // as this file writes them
            if (isReference(code) || code == 280 || code == 281 || code == 330 || code == 5 ||
                (code == 100 && record.text(i) == L"AcDbDictionary"))
                end = i + 1;
        }
        if (end == 0) end = 1;
        if (!record.insert(end, 3, OdString(name)) || !record.insert(end + 1, reference, object.handle()))
            return Tavo::eInvalidInput;
    }
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbDictionary::setName(std::wstring_view from, std::wstring_view to) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (to.empty()) return Tavo::eInvalidInput;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    const std::size_t place = findName(format(), record, from);
    if (place == RecordEditor::npos) return Tavo::eKeyNotFound;
    const std::size_t known = findName(format(), record, to);
    if (known != RecordEditor::npos && known != place) return Tavo::eDuplicate;
    if (!record.set(place, OdString(to))) return Tavo::eInvalidInput;
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbDictionary::setTreatElementsAsHard(bool hard) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (hard == isTreatElementsAsHard()) return Tavo::eOk;
    const OdDbUndoScope step(*database(), L"DICTIONARY");
    if (hard)
        setIn(*this, "AcDbDictionary", {{280, std::int64_t{1}}}, {100});
    else
        removeAt(280);
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(objectId().record()));
    bool named = false;
    for (const std::size_t i : ownTags(record)) {
        if (named && isReference(record.code(i))) {
            const Value handle = record.value(i);
            record.erase(i);
            record.insert(i, hard ? 360 : 350, handle);
        }
        named = record.code(i) == 3;
    }
    if (record.edited()) store.replace(objectId().record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbDictionary::setMergeStyle(int style) {
    if (style < 0 || style > 5) return Tavo::eOutOfRange;
    return setIn(*this, "AcDbDictionary", {{281, std::int64_t{style}}}, {280, 100});
}

OdDbObjectId OdDbDictionaryWithDefault::getAtOrDefault(std::wstring_view name) const {
    const OdDbObjectId named = getAt(name);
    return named.isNull() ? defaultId() : named;
}

Tavo::ErrorStatus OdDbDictionaryWithDefault::setDefaultId(OdDbObjectId object) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (object.isErased() || object.database() != database() || object.handle().isNull())
        return Tavo::eInvalidInput;
    return setIn(*this, "AcDbDictionaryWithDefault", {{340, object.handle()}});
}

OdDbDictionaryIterator::OdDbDictionaryIterator(OdDbDatabase& database,
                                               std::vector<OdDbDictionary::Entry> entries)
    : m_database(database), m_entries(std::move(entries)) {
    skipMissing();
}

void OdDbDictionaryIterator::skipMissing() {
    while (!done() && objectId().isErased())
        ++m_place;
}

bool OdDbDictionaryIterator::next() {
    if (done()) return false;
    ++m_place;
    skipMissing();
    return !done();
}

OdString OdDbDictionaryIterator::name() const { return done() ? OdString() : m_entries[m_place].name; }

OdDbObjectId OdDbDictionaryIterator::objectId() const {
    return done() ? OdDbObjectId() : m_database.getOdDbObjectId(m_entries[m_place].handle);
}
