#pragma once

#include "platform/Export.h"
#include "platform/drawing/HeaderValue.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbDatabaseReactor.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class OdDbDatabase;
class OdDbDictionary;
class OdDbEntityRange;
class OdDbLayerTable;
using OdDbDatabasePtr = std::shared_ptr<OdDbDatabase>;

namespace tv::dwg {
class RecordStore;
class TableNames;
class UsageData;
} // namespace tv::dwg

// A drawing in memory. The file's bytes are kept as they were read; an edit replaces the lines it concerns and
// nothing else, so that saving an unedited drawing writes the same bytes, and undoing every edit gives them
// back. Used on one thread. Ids, objects and iterators made by a database are valid as long as it lives.
class KXPLATFORM_EXPORT OdDbDatabase {
  public:
    struct OpenResult {
        OdDbDatabasePtr database;          // null when nothing of the file could be read
        std::vector<tv::Problem> problems; // one sentence per fault found, in file order
    };

    // Reads a DXF file, text or binary, of any version. A damaged file opens as far as it goes and is then
    // damaged().
    static OpenResult open(const std::filesystem::path& file);
    // The same from bytes in memory; `name` stands in the sentences and becomes the fileName().
    static OpenResult openBytes(std::string bytes, const std::filesystem::path& name = {});
    // A minimal complete drawing that other programs open. R13 and R14 are made as R2000.
    static OdDbDatabasePtr create(OdDb::DxfVersion version = OdDb::DxfVersion::kR2018);

    ~OdDbDatabase();
    OdDbDatabase(const OdDbDatabase&) = delete;
    OdDbDatabase& operator=(const OdDbDatabase&) = delete;

    // Whether a save may replace a file a person might still need. kYes only when somebody was asked.
    enum class SaveOver : std::uint8_t { kNo, kYes };
    // Writes to fileName(). Refused for a drawing without a file name and, unless `over` is kYes, over the
    // damaged file it was read from (eReadOnly) and over a file that is changedOnDisk() (eDuplicate). A failed
    // save leaves the old file whole and changed() as it was.
    tv::Problem save(SaveOver over = SaveOver::kNo);
    // Writes to `file` and, when that went well, makes it the fileName(); a drawing that was read only because
    // of its damaged file can be edited from then on. What could not be understood is written as it was read.
    // Refused as save() is when `file` is the drawing's own.
    tv::Problem saveAs(const std::filesystem::path& file, SaveOver over = SaveOver::kNo);
    // True when size or time of fileName() are no longer what they were when it was last read or written here;
    // not for a file that is gone.
    bool changedOnDisk() const;
    // The bytes save() would write.
    std::string bytes() const;

    const std::filesystem::path& fileName() const { return m_file; }
    // True when reading found faults that may mean lost contents. Such a drawing opens read-only and isn't
    // saved over its own file unless somebody says so.
    bool damaged() const { return m_damaged; }
    // Edits of a read-only drawing are refused with eReadOnly.
    bool isReadOnly() const;
    void setReadOnly(bool readOnly);
    // The version by $ACADVER, and its text ("AC1032", empty when the file says nothing).
    OdDb::DxfVersion version() const;
    OdString versionText() const;
    // The version in whose form everything new is written, and which therefore decides what the drawing can
    // hold: version(), or of a drawing that names none the newest when its records have subclass marks and R12
    // when they have none.
    OdDb::DxfVersion form() const;
    // The code page texts are written in: $DWGCODEPAGE before R2007 ("ANSI_1252" when missing), "UTF-8" from
    // then on.
    OdString codePage() const;
    bool isBinary() const;
    // False when files of the drawing's form() have no place for it.
    bool canHold(OdDb::Feature feature) const;
    // eOk or, when it can't be held, eNotHandled, of which reactors are told the first time.
    Tavo::ErrorStatus require(OdDb::Feature feature);

    // --- header variables. Names are taken with or without the dollar sign, ignoring case. ---
    std::optional<tv::dwg::HeaderValue> headerVar(std::wstring_view name) const;
    // Changes the value's lines only. The value's group code may be 0: then the file's own, or the usual one,
    // is taken. A variable the drawing lacks is inserted where its version usually has it, with a HEADER
    // section made when there is none. Answers a problem, and changes nothing, for an unknown variable, a value
    // of another type than the variable's and a variable the drawing's version can't hold.
    tv::Problem setHeaderVar(std::wstring_view name, const tv::dwg::HeaderValue& value);
    // All variables of the file in file order, names without dollar sign.
    std::vector<OdString> headerVarNames() const;

    // --- objects ---
    // Objects with a record of their own: entities with their sub-entities, table records, tables, dictionaries
    // ...
    std::size_t objectCount() const;
    // First object in file order with that handle; null id when there is none.
    OdDbObjectId getOdDbObjectId(OdDbHandle handle) const;
    // First and next object in file order; null id at the end. Section and table marks are left out.
    OdDbObjectId firstObject() const;
    OdDbObjectId nextObject(OdDbObjectId id) const;
    // Main entities in file order, without allocating (see OdDbEntity.h).
    OdDbEntityRange modelSpace() const;
    OdDbEntityRange paperSpace() const;

    // Null ids for tables the file lacks.
    OdDbObjectId getLayerTableId() const;
    // The same, opened; null when the file lacks it.
    std::shared_ptr<OdDbLayerTable> layers(OdDb::OpenMode mode = OdDb::kForRead) const;
    OdDbObjectId getLinetypeTableId() const;
    OdDbObjectId getTextStyleTableId() const;
    OdDbObjectId getDimStyleTableId() const;
    OdDbObjectId getBlockTableId() const;
    OdDbObjectId getRegAppTableId() const;
    OdDbObjectId getViewTableId() const;
    OdDbObjectId getViewportTableId() const;
    OdDbObjectId getUcsTableId() const;
    // The table the file calls by that name ("LAYER", "LTYPE", "STYLE", "DIMSTYLE", "BLOCK_RECORD", "APPID",
    // "VIEW", "VPORT", "UCS"). One the file lacks is made where and as its version usually has it when that is
    // asked for; of blocks in drawings before R13 that is the section of their definitions. Null id for other
    // names.
    OdDbObjectId getTableId(std::wstring_view name, bool createIfMissing = false);
    // The registered application of that name, added when missing, with its table when that is missing too.
    // Null id for a name the drawing's version can't hold.
    OdDbObjectId newRegApp(std::wstring_view name);
    // Which table records are referred to, as generated last (see UsageData.h).
    tv::dwg::UsageData& usageData() const;

    // --- named objects. Null ids for what the file lacks; made on demand, in one undo step, unless the
    // drawing can hold none (before R13). ---
    // The root.
    OdDbObjectId getNamedObjectsDictionaryId(bool createIfNotFound = false) const;
    // A dictionary the root names.
    OdDbObjectId getNamedDictionaryId(std::wstring_view name, bool createIfNotFound = false) const;
    // Made with its default entry "Normal".
    OdDbObjectId getPlotStyleNameDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getLayoutDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getPlotSettingsDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getGroupDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getScaleListDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getMLStyleDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getMaterialDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getColorDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getTableStyleDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getMLeaderStyleDictionaryId(bool createIfNotFound = false) const;
    OdDbObjectId getImageDictionaryId(bool createIfNotFound = false) const;

    // --- layouts (R2000 and later; null ids and none before) ---
    // In the order of their tabs, the model first.
    std::vector<OdDbObjectId> layoutIds() const;
    OdDbObjectId layoutOfBlock(OdDbObjectId blockRecord) const;
    // The model's while $TILEMODE is set, else the sheet made current, at first the one the file has as
    // *Paper_Space. A file keeps the entities of that one sheet apart from those of the others; making another
    // sheet current moves nothing, so it lasts as long as the database is open. What setCurrentLayout writes is
    // $TILEMODE.
    OdDbObjectId currentLayoutId() const;
    Tavo::ErrorStatus setCurrentLayout(OdDbObjectId layout);
    // The viewport worked in: of the model the first record *Active, of a sheet the one made active, else the
    // one its layout says was last, else the sheet itself (number 1). Making one active is not written;
    // eInvalidInput for a viewport that isn't of the current sheet.
    OdDbObjectId activeViewportId() const;
    Tavo::ErrorStatus setActiveViewport(OdDbObjectId viewport);

    // --- undo: one mechanism for every change ---
    // Everything between start and end is one step. Calls nest; the outermost name counts. A record in which
    // nothing changed leaves no trace. A change outside any record is a step of its own.
    void startUndoRecord(std::wstring_view name);
    void endUndoRecord();
    // Ends the innermost record after taking back everything that was changed since its start; reactors are
    // told as of an undo. There is no redo of it.
    void cancelUndoRecord();
    bool isUndoRecording() const;
    // False when there is nothing to undo, or inside an open record.
    bool undo();
    bool redo();
    bool hasUndo() const;
    bool hasRedo() const;
    // The name of the step undo() or redo() would take, empty when there is none.
    OdString undoName() const;
    OdString redoName() const;
    // True when the contents differ from what was last opened or saved, by count of steps.
    bool changed() const;

    // Reactors are not owned and must be removed before they die.
    void addReactor(OdDbDatabaseReactor* reactor);
    void removeReactor(OdDbDatabaseReactor* reactor);

    // The records underneath, for the object classes of this room.
    tv::dwg::RecordStore& store() { return *m_store; }
    const tv::dwg::RecordStore& store() const { return *m_store; }
    tv::dwg::TableNames& tableNames();

  private:
    struct Impl;
    struct FileStamp {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type time;
        bool known = false;
        static FileStamp of(const std::filesystem::path& file);
    };
    OdDbDatabase();
    tv::Problem write(const std::filesystem::path& file, SaveOver over);
    void recordChanged(int kind, tv::dwg::RecordId record);
    OdDbObjectId idOf(tv::dwg::RecordId record) const;
    OdDbObjectId tableId(std::string_view name) const;

    std::unique_ptr<tv::dwg::RecordStore> m_store;
    std::unique_ptr<Impl> m_impl;
    std::filesystem::path m_file;
    std::filesystem::path m_damagedFile;
    FileStamp m_stamp; // of m_file
    OdDbObjectId m_currentSheet;
    OdDbObjectId m_activeViewport;
    bool m_damaged = false;
};

// Brackets a scope with startUndoRecord and endUndoRecord.
class OdDbUndoScope {
  public:
    OdDbUndoScope(OdDbDatabase& database, std::wstring_view name) : m_database(database) {
        m_database.startUndoRecord(name);
    }
    ~OdDbUndoScope() {
        if (m_cancelled)
            m_database.cancelUndoRecord();
        else
            m_database.endUndoRecord();
    }
    // What was changed in the scope is taken back when it ends.
    void cancel() { m_cancelled = true; }
    OdDbUndoScope(const OdDbUndoScope&) = delete;
    OdDbUndoScope& operator=(const OdDbUndoScope&) = delete;

  private:
    OdDbDatabase& m_database;
    bool m_cancelled = false;
};
