#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbHandle.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

class OdDbDatabase;
class OdDbObject;
using OdDbObjectPtr = std::shared_ptr<OdDbObject>;

namespace tv::dwg {
// A record's number in its database: given once, never given again, not even after erasing.
using RecordId = std::uint32_t;
inline constexpr RecordId kNoRecord = 0xFFFFFFFF;
} // namespace tv::dwg

// Which object of which database. A plain value, valid as long as the database lives; it outlasts erasing and
// undo.
class KXPLATFORM_EXPORT OdDbObjectId {
  public:
    OdDbObjectId() = default;
    OdDbObjectId(OdDbDatabase* database, tv::dwg::RecordId record) : m_database(database), m_record(record) {}

    bool isNull() const { return !m_database || m_record == tv::dwg::kNoRecord; }
    // Also true of a null id.
    bool isErased() const;
    OdDbDatabase* database() const { return m_database; }
    tv::dwg::RecordId record() const { return m_record; }
    // Null when the object carries none (a drawing of the oldest versions need not).
    OdDbHandle handle() const;
    // A typed object, or null when the id is null or the object is erased. Opening is cheap and reads nothing
    // yet.
    OdDbObjectPtr openObject(OdDb::OpenMode mode = OdDb::kForRead) const;
    // The same, or null when the object is of another class.
    template <class T>
    std::shared_ptr<T> open(OdDb::OpenMode mode = OdDb::kForRead) const {
        return std::dynamic_pointer_cast<T>(openObject(mode));
    }

    friend bool operator==(const OdDbObjectId& a, const OdDbObjectId& b) {
        return a.isNull() ? b.isNull() : a.m_database == b.m_database && a.m_record == b.m_record;
    }

  private:
    OdDbDatabase* m_database = nullptr;
    tv::dwg::RecordId m_record = tv::dwg::kNoRecord;
};

template <>
struct std::hash<OdDbObjectId> {
    std::size_t operator()(const OdDbObjectId& id) const {
        return id.isNull() ? 0 : std::hash<const void*>()(id.database()) * 31 + id.record();
    }
};
