#pragma once

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"

#include <string>
#include <string_view>
#include <vector>

// Drawings with layers for tests.
namespace layerDrawing {

// A drawing from group codes and values separated by bars.
inline OdDbDatabasePtr fromTags(std::string text) {
    for (char& ch : text)
        if (ch == '|') ch = '\n';
    return OdDbDatabase::openBytes(text).database;
}

inline OdDbObjectId add(OdDbDatabase& database, std::wstring_view name) {
    return database.layers(OdDb::kForWrite)->add(name);
}

inline OdDbDatabasePtr withLayers(const std::vector<const wchar_t*>& names) {
    const auto database = OdDbDatabase::create();
    for (const wchar_t* name : names)
        add(*database, name);
    return database;
}

inline std::shared_ptr<OdDbLayerTableRecord> write(OdDbObjectId layer) {
    return layer.open<OdDbLayerTableRecord>(OdDb::kForWrite);
}

} // namespace layerDrawing
