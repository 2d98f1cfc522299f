#pragma once

#include "platform/drawing/OdDbObjectId.h"
#include "platform/drawing/dxf/TagWriter.h"
#include "platform/text/Problem.h"

#include <string_view>

namespace tv::dwg {

// Makes the OBJECTS section and its root dictionary where the drawing lacks them. eNotHandled for a version
// without objects (before R13), a drawing whose records carry no handles, and a file that ends before its end
// mark.
Tavo::ErrorStatus ensureObjects(OdDbDatabase& database);

// Makes the CLASSES record of an object type that needs one, where the drawing has such a section. Types the
// format has built in need none.
void ensureClass(OdDbDatabase& database, std::string_view type);

// A new record of the OBJECTS section, begun with its type, a free handle, and its owner as owner and reactor.
// The caller writes the rest and adds it; what is begun and not added leaves only the handle taken. Part of the
// undo step that is open.
class NewObject {
  public:
    // `owner` names the dictionary or object it will hang below. A dictionary's extension owner is no reactor.
    NewObject(OdDbDatabase& database, std::string_view type, OdDbHandle owner, bool reactor = true);

    Tavo::ErrorStatus status() const { return m_status; }
    OdDbHandle handle() const { return m_handle; }
    TagWriter& tags() { return m_tags; }
    // Behind that record when it is one of the section, else at the section's end. A null id when the status
    // isn't eOk, a tag was refused or an undo is being replayed.
    OdDbObjectId add(OdDbObjectId near = {});

  private:
    OdDbDatabase& m_database;
    OdDbHandle m_handle;
    TagWriter m_tags;
    Tavo::ErrorStatus m_status;
};

// A new dictionary below `owner`, without entries; null where a drawing can hold none. `hard` makes it own its
// entries.
OdDbObjectId addDictionary(OdDbDatabase& database, OdDbObjectId owner, bool hard, bool reactor = true);

// The same, named in its owner, which is a dictionary that lacks the name.
OdDbObjectId addDictionaryAt(OdDbObjectId owner, std::wstring_view name, bool hard);

} // namespace tv::dwg
