#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

class OdDbDictionaryIterator;

// Names of objects. Names are compared without regard to case, and as what they read back as.
class KXPLATFORM_EXPORT OdDbDictionary : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    struct Entry {
        OdString name;
        OdDbHandle handle;
    };
    // In file order; the objects named need not exist.
    std::vector<Entry> entries() const;
    std::size_t numEntries() const;
    // The entries as they are now whose objects exist; later changes don't disturb the walk.
    std::shared_ptr<OdDbDictionaryIterator> newIterator() const;
    // Null id when the name is missing or its object is.
    OdDbObjectId getAt(std::wstring_view name) const;
    bool has(std::wstring_view name) const;
    // The first name the object has here, empty when it has none.
    OdString nameAt(OdDbObjectId object) const;
    // Of a dictionary with a default entry, null for others.
    OdDbObjectId defaultId() const;

    // eKeyNotFound when there is no such name. The object itself stays.
    Tavo::ErrorStatus remove(std::wstring_view name);
    // Takes the entry away and erases its object; a dictionary goes with all it owns, at any depth.
    Tavo::ErrorStatus eraseEntry(std::wstring_view name);
    // Names the object, which must have a handle; an existing name is given the new object.
    Tavo::ErrorStatus setAt(std::wstring_view name, OdDbObjectId object);
    // eDuplicate for a name another entry has. The entry keeps its place.
    Tavo::ErrorStatus setName(std::wstring_view from, std::wstring_view to);

    // A hard owner's objects go when it goes (group code 280); its entries are written as hard references.
    bool isTreatElementsAsHard() const { return integerAt(280) != 0; }
    Tavo::ErrorStatus setTreatElementsAsHard(bool hard);
    // What becomes of entries of the same name when drawings are merged (group code 281), 0..5.
    int mergeStyle() const { return integerAt(281); }
    Tavo::ErrorStatus setMergeStyle(int style);

  private:
    // Calls `visit(name tag, handle tag)` for each entry until it answers true.
    template <class Visit>
    void walk(Visit&& visit) const;
};
using OdDbDictionaryPtr = std::shared_ptr<OdDbDictionary>;

// A dictionary that has an object for every name it doesn't list.
class KXPLATFORM_EXPORT OdDbDictionaryWithDefault : public OdDbDictionary {
  public:
    using OdDbDictionary::OdDbDictionary;
    // The default object where getAt finds none.
    OdDbObjectId getAtOrDefault(std::wstring_view name) const;
    Tavo::ErrorStatus setDefaultId(OdDbObjectId object);
};
using OdDbDictionaryWithDefaultPtr = std::shared_ptr<OdDbDictionaryWithDefault>;

class KXPLATFORM_EXPORT OdDbDictionaryIterator {
  public:
    OdDbDictionaryIterator(OdDbDatabase& database, std::vector<OdDbDictionary::Entry> entries);
    bool done() const { return m_place >= m_entries.size(); }
    bool next();
    // Of the entry it stands at; empty and null when done.
    OdString name() const;
    OdDbObjectId objectId() const;
    OdDbObjectPtr getObject(OdDb::OpenMode mode = OdDb::kForRead) const { return objectId().openObject(mode); }

  private:
    void skipMissing();

    OdDbDatabase& m_database;
    std::vector<OdDbDictionary::Entry> m_entries;
    std::size_t m_place = 0;
};
using OdDbDictionaryIteratorPtr = std::shared_ptr<OdDbDictionaryIterator>;

namespace tv::dwg {
// The object with all that goes when it goes: its extension dictionary and the entries of dictionaries that are
// their own.
KXPLATFORM_EXPORT std::vector<OdDbObjectId> ownedTree(OdDbObjectId object);
} // namespace tv::dwg
