#include "platform/drawing/OdDbDatabase.h"

#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/drawing/UsageData.h"
#include "platform/drawing/dxf/DxfReader.h"
#include "platform/drawing/dxf/GroupMembers.h"
#include "platform/drawing/dxf/HeaderSection.h"
#include "platform/drawing/dxf/NewRecord.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/drawing/dxf/TableNames.h"
#include "platform/text/AtomicFile.h"
#include "platform/text/Format.h"
#include "platform/text/ReadFile.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <new>
#include <set>
#include <system_error>

using namespace tv::dwg;

namespace {

tv::Problem refusal(Tavo::ErrorStatus status, const std::wstring& file, const wchar_t* pattern) {
    tv::Problem problem;
    problem.status = status;
    problem.file = file;
    problem.sentence = tv::text::format(pattern, file);
    return problem;
}

std::wstring wideName(const std::filesystem::path& file) { return tv::text::fromUtf8(file.native()); }

OdDbEntityRange entitiesOf(const OdDbDatabase& database, bool paper) {
    const RecordId section = database.store().section(Section::kEntities);
    if (section == kNoRecord) return {};
    return {const_cast<OdDbDatabase&>(database), section,
            paper ? OdDbEntityRange::kPaper : OdDbEntityRange::kModel};
}

} // namespace

struct OdDbDatabase::Impl {
    explicit Impl(RecordStore& store) : header(store), names(store), groups(store) {}

    // Reactors may come and go while they are being told.
    template <class Tell>
    void tell(Tell&& tellOne) {
        const std::vector<OdDbDatabaseReactor*> now = reactors;
        for (OdDbDatabaseReactor* reactor : now)
            if (std::find(reactors.begin(), reactors.end(), reactor) != reactors.end()) tellOne(*reactor);
    }

    HeaderSection header;
    TableNames names;
    GroupMembers groups;
    std::set<OdDb::Feature> refused; // told already
    UsageData usage;
    std::vector<OdDbDatabaseReactor*> reactors;
};

OdDbDatabase::OdDbDatabase() = default;

OdDbDatabase::~OdDbDatabase() {
    if (m_impl) m_impl->tell([&](OdDbDatabaseReactor& reactor) { reactor.goodbye(*this); });
}

OdDbDatabase::OpenResult OdDbDatabase::open(const std::filesystem::path& file) {
    std::string bytes;
    const FileStamp stamp = FileStamp::of(file); // before reading: what changes meanwhile is noticed
    if (tv::Problem problem = tv::readFile(file, bytes)) return {nullptr, {std::move(problem)}};
    OpenResult result = openBytes(std::move(bytes), file);
    if (result.database) result.database->m_stamp = stamp;
    return result;
}

OdDbDatabase::FileStamp OdDbDatabase::FileStamp::of(const std::filesystem::path& file) {
    std::error_code failed;
    FileStamp stamp;
    stamp.size = std::filesystem::file_size(file, failed);
    if (failed) return {};
    stamp.time = std::filesystem::last_write_time(file, failed);
    stamp.known = !failed;
    return stamp;
}

OdDbDatabase::OpenResult OdDbDatabase::openBytes(std::string bytes, const std::filesystem::path& name) try {
    ReadResult read = readDxf(std::move(bytes), wideName(name));
    OpenResult result{nullptr, std::move(read.problems)};
    if (!read.store) return result;
    const OdDbDatabasePtr database(new OdDbDatabase);
    database->m_store = std::move(read.store);
    database->m_impl = std::make_unique<Impl>(*database->m_store);
    database->m_file = name;
    database->m_damaged = !result.problems.empty();
    if (database->m_damaged) {
        database->m_damagedFile = name;
        database->setReadOnly(true);
    }
    database->m_store->setListener([raw = database.get()](ChangeKind kind, RecordId id) {
        raw->recordChanged(static_cast<int>(kind), id);
    });
    result.database = database;
    return result;
} catch (const std::bad_alloc&) {
    return {
        nullptr,
        {refusal(Tavo::eFileAccess, wideName(name),
                 VORD_ResourceString("IDS_TAVO_DXF_NO_MEMORY", L"도면 \"%s\"을(를) 열 메모리가 부족합니다."))}};
}

void OdDbDatabase::recordChanged(int kind, RecordId id) {
    const Record& record = m_store->record(id);
    const OdDbObjectId object(this, id);
    if (record.type == kTypeHeaderVar) {
        if (static_cast<ChangeKind>(kind) != ChangeKind::kReplaced) m_impl->header.forget();
        const std::string name = m_impl->header.nameOf(id);
        if (name == "ACADVER" || name == "DWGCODEPAGE") learnVersion(*m_store);
        const std::wstring wide(name.begin(), name.end());
        m_impl->tell([&](OdDbDatabaseReactor& reactor) { reactor.headerSysVarChanged(*this, wide); });
        return;
    }
    if (record.type == kTypeSection || record.type == kTypeEndSec) {
        m_impl->header.forget();
        m_impl->names.clear();
        return;
    }
    m_impl->groups.recordChanged(static_cast<ChangeKind>(kind), id);
    if (record.section == Section::kTables || record.section == Section::kBlocks)
        m_impl->names.recordChanged(static_cast<ChangeKind>(kind), id);
    m_impl->tell([&](OdDbDatabaseReactor& reactor) {
        switch (static_cast<ChangeKind>(kind)) {
        case ChangeKind::kReplaced:
            reactor.objectModified(*this, object);
            break;
        case ChangeKind::kInserted:
            reactor.objectAppended(*this, object);
            break;
        case ChangeKind::kRemoved:
            reactor.objectErased(*this, object);
            break;
        }
    });
}

TableNames& OdDbDatabase::tableNames() { return m_impl->names; }

// --- files ---

tv::Problem OdDbDatabase::save(SaveOver over) {
    if (m_file.empty())
        return refusal(Tavo::eInvalidInput, {},
                       VORD_ResourceString("IDS_TAVO_DXF_SAVE_NO_NAME",
                                           L"도면을 저장할 수 없습니다: 아직 파일 이름이 없습니다."));
    return write(m_file, over);
}

tv::Problem OdDbDatabase::saveAs(const std::filesystem::path& file, SaveOver over) {
    tv::Problem problem = write(file, over);
    if (!problem) m_file = file;
    return problem;
}

tv::Problem OdDbDatabase::write(const std::filesystem::path& file, SaveOver over) {
    const auto same = [&](const std::filesystem::path& other) {
        std::error_code ignored;
        return file == other || std::filesystem::equivalent(file, other, ignored);
    };
    if (over == SaveOver::kNo && m_damaged && same(m_damagedFile))
        return refusal(
            Tavo::eReadOnly, wideName(file),
            VORD_ResourceString("IDS_TAVO_DXF_SAVE_DAMAGED",
                                L"도면 \"%s\"을(를) 저장할 수 없습니다: 손상된 채 열린 도면이므로 다른 "
                                L"이름으로 저장하십시오."));
    if (over == SaveOver::kNo && same(m_file) && changedOnDisk())
        return refusal(
            Tavo::eDuplicate, wideName(file),
            VORD_ResourceString("IDS_TAVO_DXF_SAVE_CHANGED_ON_DISK",
                                L"도면 \"%s\"을(를) 저장하지 않았습니다: 연 뒤에 다른 프로그램이 파일을 "
                                L"바꾸었습니다. 다른 이름으로 저장하거나 덮어쓰기를 확인하십시오."));
    tv::Problem problem = tv::writeFileAtomically(file, [this](tv::FileSink& sink) {
        bool good = true;
        m_store->forEachSpan([&](std::string_view part) { good = good && sink.write(part); });
        return good;
    });
    if (problem) return problem;
    m_store->undoLog().markSaved();
    m_stamp = FileStamp::of(file);
    if (m_damaged && isReadOnly()) setReadOnly(false);
    return {};
}

bool OdDbDatabase::changedOnDisk() const {
    if (!m_stamp.known) return false;
    const FileStamp now = FileStamp::of(m_file);
    return now.known && (now.size != m_stamp.size || now.time != m_stamp.time);
}

bool OdDbDatabase::isReadOnly() const { return m_store->readOnly(); }
void OdDbDatabase::setReadOnly(bool readOnly) { m_store->setReadOnly(readOnly); }

std::string OdDbDatabase::bytes() const {
    std::string out;
    m_store->forEachSpan([&](std::string_view part) { out += part; });
    return out;
}

OdDb::DxfVersion OdDbDatabase::version() const { return m_store->format().version; }
OdDb::DxfVersion OdDbDatabase::form() const { return m_store->format().form; }

OdString OdDbDatabase::versionText() const {
    const auto value = headerVar(L"ACADVER");
    return value ? value->asText().value_or(OdString()) : OdString();
}

OdString OdDbDatabase::codePage() const {
    const DxfFormat& format = m_store->format();
    return format.utf8 ? OdString(L"UTF-8")
                       : OdString(std::wstring(format.codePage.begin(), format.codePage.end()));
}

bool OdDbDatabase::isBinary() const { return m_store->format().encoding != Encoding::kText; }

bool OdDbDatabase::canHold(OdDb::Feature feature) const { return form() >= firstVersionOf(feature); }

Tavo::ErrorStatus OdDbDatabase::require(OdDb::Feature feature) {
    if (canHold(feature)) return Tavo::eOk;
    if (m_impl->refused.insert(feature).second)
        m_impl->tell([&](OdDbDatabaseReactor& reactor) { reactor.featureRefused(*this, feature); });
    return Tavo::eNotHandled;
}

// --- header variables ---

std::optional<HeaderValue> OdDbDatabase::headerVar(std::wstring_view name) const {
    return m_impl->header.value(plainVariableName(name));
}

tv::Problem OdDbDatabase::setHeaderVar(std::wstring_view name, const HeaderValue& value) {
    // A name that can't be one is reported as it was given.
    const std::string plain = plainVariableName(name);
    return m_impl->header.set(plain.empty() ? tv::text::toUtf8(name) : plain, value);
}

std::vector<OdString> OdDbDatabase::headerVarNames() const {
    std::vector<OdString> out;
    for (const std::string& name : m_impl->header.names())
        out.emplace_back(std::wstring(name.begin(), name.end()));
    return out;
}

// --- objects ---

std::size_t OdDbDatabase::objectCount() const {
    std::size_t count = 0;
    for (OdDbObjectId id = firstObject(); !id.isNull(); id = nextObject(id))
        ++count;
    return count;
}

OdDbObjectId OdDbDatabase::getOdDbObjectId(OdDbHandle handle) const {
    const RecordId id = m_store->findHandle(handle.value());
    return id == kNoRecord ? OdDbObjectId() : idOf(id);
}

OdDbObjectId OdDbDatabase::firstObject() const { return nextObject(idOf(RecordStore::kHead)); }

OdDbObjectId OdDbDatabase::nextObject(OdDbObjectId after) const {
    for (RecordId id = m_store->next(after.record()); id != kNoRecord; id = m_store->next(id)) {
        const Record& record = m_store->record(id);
        if (!(record.flags & (kStructure | kHeaderVariable)) && record.section != Section::kClasses)
            return idOf(id);
    }
    return {};
}

OdDbEntityRange OdDbDatabase::modelSpace() const { return entitiesOf(*this, false); }
OdDbEntityRange OdDbDatabase::paperSpace() const { return entitiesOf(*this, true); }

OdDbObjectId OdDbDatabase::idOf(RecordId id) const { return {const_cast<OdDbDatabase*>(this), id}; }

OdDbObjectId OdDbDatabase::tableId(std::string_view name) const {
    const RecordId id = m_store->table(name);
    return id == kNoRecord ? OdDbObjectId() : idOf(id);
}

std::shared_ptr<OdDbLayerTable> OdDbDatabase::layers(OdDb::OpenMode mode) const {
    return getLayerTableId().open<OdDbLayerTable>(mode);
}

OdDbObjectId OdDbDatabase::getLayerTableId() const { return tableId("LAYER"); }
OdDbObjectId OdDbDatabase::getLinetypeTableId() const { return tableId("LTYPE"); }
OdDbObjectId OdDbDatabase::getTextStyleTableId() const { return tableId("STYLE"); }
OdDbObjectId OdDbDatabase::getDimStyleTableId() const { return tableId("DIMSTYLE"); }
OdDbObjectId OdDbDatabase::getRegAppTableId() const { return tableId("APPID"); }
OdDbObjectId OdDbDatabase::getViewTableId() const { return tableId("VIEW"); }
OdDbObjectId OdDbDatabase::getViewportTableId() const { return tableId("VPORT"); }
OdDbObjectId OdDbDatabase::getUcsTableId() const { return tableId("UCS"); }

OdDbObjectId OdDbDatabase::getTableId(std::wstring_view name, bool createIfMissing) {
    const std::string plain = plainVariableName(name);
    const RecordId there = m_store->table(plain);
    if (there != kNoRecord) return idOf(there);
    const RecordId made = createIfMissing ? needTable(*this, plain) : kNoRecord;
    if (made != kNoRecord || plain != "BLOCK_RECORD") return made == kNoRecord ? OdDbObjectId() : idOf(made);
    const RecordId section =
        createIfMissing ? needSection(*this, Section::kBlocks) : m_store->section(Section::kBlocks);
    return section == kNoRecord ? OdDbObjectId() : idOf(section);
}

OdDbObjectId OdDbDatabase::newRegApp(std::wstring_view name) {
    if (const auto table = getRegAppTableId().open<OdDbSymbolTable>())
        if (const OdDbObjectId there = table->getAt(name); !there.isNull()) return there;
    const OdDbUndoScope step(*this, name);
    const auto table = getTableId(L"APPID", true).open<OdDbSymbolTable>(OdDb::kForWrite);
    return table ? table->add(name) : OdDbObjectId();
}

UsageData& OdDbDatabase::usageData() const { return m_impl->usage; }

// Drawings before R13 have no table of blocks; the section of their definitions stands for it.
OdDbObjectId OdDbDatabase::getBlockTableId() const {
    if (const OdDbObjectId table = tableId("BLOCK_RECORD"); !table.isNull()) return table;
    const RecordId section = m_store->section(Section::kBlocks);
    return section == kNoRecord ? OdDbObjectId() : idOf(section);
}

// --- undo ---

void OdDbDatabase::startUndoRecord(std::wstring_view name) {
    if (!m_store->replaying()) m_store->undoLog().start(name);
}

void OdDbDatabase::endUndoRecord() {
    if (m_store->replaying()) return;
    if (m_store->undoLog().outermost()) m_impl->groups.dropErased();
    m_store->undoLog().end();
}

void OdDbDatabase::cancelUndoRecord() {
    if (!m_store->replaying()) m_store->cancelUndo();
}

bool OdDbDatabase::isUndoRecording() const { return m_store->undoLog().recording(); }

bool OdDbDatabase::undo() {
    if (!m_store->undo()) return false;
    m_impl->tell([&](OdDbDatabaseReactor& reactor) { reactor.undoFinished(*this); });
    return true;
}

bool OdDbDatabase::redo() {
    if (!m_store->redo()) return false;
    m_impl->tell([&](OdDbDatabaseReactor& reactor) { reactor.redoFinished(*this); });
    return true;
}

bool OdDbDatabase::hasUndo() const { return m_store->undoLog().nextUndo() != nullptr; }
bool OdDbDatabase::hasRedo() const { return m_store->undoLog().nextRedo() != nullptr; }

OdString OdDbDatabase::undoName() const {
    const UndoLog::Step* step = m_store->undoLog().nextUndo();
    return step ? OdString(step->name) : OdString();
}

OdString OdDbDatabase::redoName() const {
    const UndoLog::Step* step = m_store->undoLog().nextRedo();
    return step ? OdString(step->name) : OdString();
}

bool OdDbDatabase::changed() const { return m_store->undoLog().changed(); }

void OdDbDatabase::addReactor(OdDbDatabaseReactor* reactor) {
    if (reactor) m_impl->reactors.push_back(reactor);
}

void OdDbDatabase::removeReactor(OdDbDatabaseReactor* reactor) { std::erase(m_impl->reactors, reactor); }
