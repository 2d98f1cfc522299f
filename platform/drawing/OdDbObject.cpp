#include "platform/drawing/OdDbObject.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/VersionLimits.h"
#include "platform/drawing/dxf/NewObject.h"
#include "platform/drawing/dxf/ObjectGroups.h"
#include "platform/drawing/dxf/OwnTags.h"
#include "platform/drawing/dxf/RecordEditor.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/XData.h"

#include <algorithm>

using namespace tv::dwg;

namespace {

std::vector<std::size_t> partOf(const RecordEditor& record, OdDbObject::Part part) {
    std::vector<std::size_t> own = ownTags(record);
    if (part == OdDbObject::Part::kWhole) return own;
    int marks = 0;
    const auto end = std::find_if(own.begin(), own.end(),
                                  [&](std::size_t i) { return record.code(i) == 100 && ++marks == 2; });
    own.erase(end, own.end());
    return own;
}

} // namespace

OdDbObject::~OdDbObject() = default;

OdString OdDbObject::isA() const {
    const std::string_view name = database()->store().typeName(m_id.record());
    return OdString(std::wstring(name.begin(), name.end()));
}

OdDbObjectId OdDbObject::ownerId() const {
    if (const OdDbObjectId owner = idAt(330); !owner.isNull()) return owner;
    const RecordId owner = database()->store().record(m_id.record()).owner;
    return owner == kNoRecord ? OdDbObjectId() : OdDbObjectId(database(), owner);
}

Tavo::ErrorStatus OdDbObject::erase() {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    if (store.record(m_id.record()).flags & kStructure) return Tavo::eNotHandled;
    const OdDbUndoScope step(*database(), database()->isUndoRecording() ? L"" : L"ERASE");
    const bool main = !(store.record(m_id.record()).flags & kSubEntity);
    for (RecordId id = store.next(m_id.record());
         main && id != kNoRecord && (store.record(id).flags & kSubEntity);) {
        const RecordId following = store.next(id);
        store.remove(id);
        id = following;
    }
    if (const OdDbObjectId extension = extensionDictionary();
        !extension.isNull() && extension.openObject()->ownerId() == m_id)
        for (const OdDbObjectId owned : ownedTree(extension))
            if (owned != m_id && !(store.record(owned.record()).flags & kStructure))
                store.remove(owned.record());
    return store.remove(m_id.record()) ? Tavo::eOk : Tavo::eReadOnly;
}

OdResBufPtr OdDbObject::xData(std::wstring_view appName) const { return readXData(format(), tags(), appName); }

Tavo::ErrorStatus OdDbObject::setXData(const OdResBuf* chain) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(m_id.record()));
    if (const auto status = replaceXData(record, chain); status != Tavo::eOk) return status;
    if (!record.edited()) return Tavo::eOk;
    if (const auto status = database()->require(OdDb::Feature::kExtendedData); status != Tavo::eOk)
        return status;
    const OdDbUndoScope step(*database(), L"XDATA");
    // A drawing without a table of applications does without.
    const bool registers = !database()->getRegAppTableId().isNull();
    for (const OdResBuf* buffer = chain; buffer && registers; buffer = buffer->next().get())
        if (buffer->restype() == OdResBuf::kDxfRegAppName && buffer->next() &&
            buffer->next()->restype() != OdResBuf::kDxfRegAppName)
            database()->newRegApp(buffer->getString().view());
    store.replace(m_id.record(), record.bytes());
    return Tavo::eOk;
}

OdDbObjectId OdDbObject::extensionDictionary() const {
    TagCursor cursor = tags();
    bool inside = false;
    for (Tag tag; cursor.next(tag) && tag.code != 1001;) {
        if (tag.code == 102) inside = trimmed(tag.value) == "{ACAD_XDICTIONARY";
        if (inside && tag.code == 360) {
            const auto handle = handleOf(format(), tag);
            return handle ? database()->getOdDbObjectId(*handle) : OdDbObjectId();
        }
    }
    return {};
}

Tavo::ErrorStatus OdDbObject::createExtensionDictionary() {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (extensionDictionary().open<OdDbDictionary>()) return Tavo::eOk;
    if (handle().isNull()) return Tavo::eNotHandled;
    if (const auto status = ensureObjects(*database()); status != Tavo::eOk) return status;
    const OdDbUndoScope step(*database(), L"DICTIONARY");
    const OdDbObjectId dictionary = addDictionary(*database(), m_id, true, false);
    if (dictionary.isNull()) return Tavo::eNotHandled;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(m_id.record()));
    setExtensionDictionary(record, dictionary.handle());
    store.replace(m_id.record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbObject::releaseExtensionDictionary() {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    const auto dictionary = extensionDictionary().open<OdDbDictionary>(OdDb::kForWrite);
    if (dictionary && dictionary->numEntries() != 0) return Tavo::eNotHandled;
    const OdDbUndoScope step(*database(), L"DICTIONARY");
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(m_id.record()));
    setExtensionDictionary(record, {});
    if (record.edited()) store.replace(m_id.record(), record.bytes());
    if (dictionary && dictionary->objectId() != m_id) dictionary->erase();
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbObject::addPersistentReactor(OdDbObjectId reactor) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    if (reactor.isErased() || reactor.database() != database() || reactor.handle().isNull())
        return Tavo::eInvalidInput;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(m_id.record()));
    if (!addReactor(record, reactor.handle())) return Tavo::eNotHandled;
    if (record.edited()) store.replace(m_id.record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbObject::removePersistentReactor(OdDbObjectId reactor) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(m_id.record()));
    removeReactor(record, reactor.handle());
    if (record.edited()) store.replace(m_id.record(), record.bytes());
    return Tavo::eOk;
}

TagCursor OdDbObject::tags() const { return database()->store().tags(m_id.record()); }

const DxfFormat& OdDbObject::format() const { return database()->store().format(); }

std::optional<Tag> OdDbObject::find(int code, Part part) const {
    OwnTags own(format(), database()->store().text(m_id.record()));
    int marks = 0;
    for (Tag tag; own.next(tag);) {
        if (tag.code == 100 && ++marks == 2 && part == Part::kCommon) break;
        if (tag.code == code) return tag;
    }
    return std::nullopt;
}

double OdDbObject::realAt(int code, double otherwise) const {
    const auto tag = find(code);
    return tag ? realOf(format(), *tag).value_or(otherwise) : otherwise;
}

int OdDbObject::integerAt(int code, int otherwise) const {
    const auto tag = find(code);
    if (!tag) return otherwise;
    const auto value = integerOf(format(), *tag);
    return value && *value >= INT32_MIN && *value <= INT32_MAX ? static_cast<int>(*value) : otherwise;
}

OdString OdDbObject::textAt(int code) const {
    const auto tag = find(code);
    return tag ? textOf(format(), *tag) : OdString();
}

OdDbHandle OdDbObject::handleAt(int code) const {
    const auto tag = find(code);
    return tag ? handleOf(format(), *tag).value_or(OdDbHandle()) : OdDbHandle();
}

OdDbObjectId OdDbObject::idAt(int code) const { return database()->getOdDbObjectId(handleAt(code)); }

Tavo::ErrorStatus OdDbObject::checkWrite() const {
    if (isErased()) return Tavo::eWasErased;
    if (m_mode != OdDb::kForWrite) return Tavo::eNotOpenForWrite;
    return database()->store().writable() ? Tavo::eOk : Tavo::eReadOnly;
}

Tavo::ErrorStatus OdDbObject::setAt(int code, const Value& value, std::initializer_list<int> behind,
                                    Part part) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(m_id.record()));
    const std::vector<std::size_t> own = partOf(record, part);
    const auto there =
        std::find_if(own.begin(), own.end(), [&](std::size_t i) { return record.code(i) == code; });
    if (there != own.end()) {
        if (!record.set(*there, value)) return Tavo::eWrongType;
    } else {
        std::size_t place = own.empty() ? record.size() : own.back() + 1;
        for (auto i = own.rbegin(); i != own.rend(); ++i)
            if (std::find(behind.begin(), behind.end(), record.code(*i)) != behind.end()) {
                place = *i + 1;
                break;
            }
        if (!record.insert(place, code, value)) return Tavo::eWrongType;
    }
    if (record.edited()) store.replace(m_id.record(), record.bytes());
    return Tavo::eOk;
}

Tavo::ErrorStatus OdDbObject::removeAt(int code, Part part) {
    if (const auto status = checkWrite(); status != Tavo::eOk) return status;
    RecordStore& store = database()->store();
    RecordEditor record(format(), store.text(m_id.record()));
    for (const std::size_t i : partOf(record, part))
        if (record.code(i) == code) {
            record.erase(i);
            store.replace(m_id.record(), record.bytes());
            break;
        }
    return Tavo::eOk;
}
