#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/OdResBuf.h"
#include "platform/drawing/dxf/DxfTags.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <initializer_list>
#include <optional>
#include <string_view>

class OdDbDatabase;

// An opened object. It holds no values of its own: each call reads the record as it is then, so that two
// objects opened on one id always agree, also after an undo. A setter writes at once (eNotOpenForWrite for an
// object opened for reading, eWasErased, eReadOnly while an undo is replayed) and changes only the tags it
// concerns.
class KXPLATFORM_EXPORT OdDbObject {
  public:
    OdDbObject(OdDbObjectId id, OdDb::OpenMode mode) : m_id(id), m_mode(mode) {}
    virtual ~OdDbObject();
    OdDbObject(const OdDbObject&) = delete;
    OdDbObject& operator=(const OdDbObject&) = delete;

    OdDbObjectId objectId() const { return m_id; }
    OdDbDatabase* database() const { return m_id.database(); }
    OdDbHandle handle() const { return m_id.handle(); }
    bool isWriteEnabled() const { return m_mode == OdDb::kForWrite; }
    // The name of the record's type in the file ("LINE").
    OdString isA() const;
    bool isErased() const { return m_id.isErased(); }
    // By group code 330, else the table or block the record stands in; null when neither says.
    virtual OdDbObjectId ownerId() const;
    // Takes the record, with the sub-entities that belong to it and its own extension dictionary, out of the
    // drawing. Undo brings it back.
    virtual Tavo::ErrorStatus erase();

    // The extended data of one application as a chain that begins with its 1001 buffer; null when there is
    // none. An empty name gives the data of all applications.
    OdResBufPtr xData(std::wstring_view appName = {}) const;
    // Replaces the data of every application whose 1001 stands in the chain; a 1001 alone takes its data away.
    // Applications that aren't registered yet are, where the drawing has a table of them. A chunk longer than a
    // line holds becomes several. eOutOfRange when the object's extended data would take more than the 16,383
    // bytes the format allows, eNotHandled in drawings before R12.
    Tavo::ErrorStatus setXData(const OdResBuf* chain);
    OdDbObjectId extensionDictionary() const;
    // Makes one where the object has none; it owns what is named in it. eNotHandled for objects without a
    // handle and in drawings before R13.
    Tavo::ErrorStatus createExtensionDictionary();
    // Takes an empty one, or a reference to a missing one, away; eNotHandled when it has entries.
    Tavo::ErrorStatus releaseExtensionDictionary();
    // Who the file says is told when the object changes.
    Tavo::ErrorStatus addPersistentReactor(OdDbObjectId reactor);
    Tavo::ErrorStatus removePersistentReactor(OdDbObjectId reactor);

    // The tags of the record as they stand in the file.
    tv::dwg::TagCursor tags() const;
    const tv::dwg::DxfFormat& format() const;

    // The part of an entity that all entities share: what stands before its second subclass mark.
    enum class Part : std::uint8_t { kWhole, kCommon };
    // First tag with that group code among the object's own: not in groups of group code 102, embedded objects
    // or extended data. The functions below give its value, or `otherwise` when it is missing or unreadable.
    std::optional<tv::dwg::Tag> find(int code, Part part = Part::kWhole) const;
    double realAt(int code, double otherwise = 0) const;
    int integerAt(int code, int otherwise = 0) const;
    OdString textAt(int code) const;
    OdDbHandle handleAt(int code) const;
    OdDbObjectId idAt(int code) const;

  protected:
    Tavo::ErrorStatus checkWrite() const;
    // Changes that tag's value or, when the object has no such tag, adds it behind the last of the tags
    // `behind`, or at the end of the object's own tags.
    Tavo::ErrorStatus setAt(int code, const tv::dwg::Value& value, std::initializer_list<int> behind = {},
                            Part part = Part::kWhole);
    Tavo::ErrorStatus removeAt(int code, Part part = Part::kWhole);

  private:
    OdDbObjectId m_id;
    OdDb::OpenMode m_mode;
};
