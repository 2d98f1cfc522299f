// The dictionaries every drawing's root names.

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbPlaceHolder.h"
#include "platform/drawing/dxf/NewObject.h"
#include "platform/drawing/dxf/RecordStore.h"

using namespace tv::dwg;

namespace {

constexpr const wchar_t* kPlotStyles = L"ACAD_PLOTSTYLENAME";

// The dictionary with its placeholder; plot style names came with R2000.
OdDbObjectId addPlotStyles(OdDbDatabase& database, OdDbObjectId root) {
    if (database.form() < OdDb::DxfVersion::kR2000) return {};
    const OdDbUndoScope step(database, L"DICTIONARY");
    NewObject dictionary(database, "ACDBDICTIONARYWDFLT", root.handle());
    if (dictionary.status() != Tavo::eOk) return {};
    NewObject normal(database, "ACDBPLACEHOLDER", dictionary.handle());
    dictionary.tags()
        .name(100, "AcDbDictionary")
        .tag(281, 1)
        .name(3, "Normal")
        .name(350, normal.handle().ascii())
        .name(100, "AcDbDictionaryWithDefault")
        .name(340, normal.handle().ascii());
    const OdDbObjectId id = dictionary.add(root);
    normal.add(id);
    if (!id.isNull()) root.open<OdDbDictionary>(OdDb::kForWrite)->setAt(kPlotStyles, id);
    return id;
}

} // namespace

OdDbObjectId OdDbDatabase::getNamedObjectsDictionaryId(bool createIfNotFound) const {
    if (createIfNotFound && ensureObjects(const_cast<OdDbDatabase&>(*this)) != Tavo::eOk) return {};
    const RecordId section = m_store->section(Section::kObjects);
    if (section == kNoRecord) return {};
    const RecordId first = m_store->next(section);
    if (first == kNoRecord || m_store->typeName(first) != "DICTIONARY") return {};
    return idOf(first);
}

OdDbObjectId OdDbDatabase::getNamedDictionaryId(std::wstring_view name, bool createIfNotFound) const {
    const auto root = getNamedObjectsDictionaryId().open<OdDbDictionary>();
    const OdDbObjectId known = root ? root->getAt(name) : OdDbObjectId();
    if (known.open<OdDbDictionary>()) return known;
    if (!createIfNotFound || name.empty()) return {};
    auto& database = const_cast<OdDbDatabase&>(*this);
    const OdDbUndoScope step(database, L"DICTIONARY");
    const auto parent = getNamedObjectsDictionaryId(true).open<OdDbDictionary>(OdDb::kForWrite);
    if (!parent) return {};
    if (name == kPlotStyles) return addPlotStyles(database, parent->objectId());
    return addDictionaryAt(parent->objectId(), name, false);
}

OdDbObjectId OdDbDatabase::getPlotStyleNameDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(kPlotStyles, createIfNotFound);
}

OdDbObjectId OdDbDatabase::getLayoutDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_LAYOUT", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getPlotSettingsDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_PLOTSETTINGS", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getGroupDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_GROUP", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getScaleListDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_SCALELIST", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getMLStyleDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_MLINESTYLE", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getMaterialDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_MATERIAL", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getColorDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_COLOR", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getTableStyleDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_TABLESTYLE", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getMLeaderStyleDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_MLEADERSTYLE", createIfNotFound);
}

OdDbObjectId OdDbDatabase::getImageDictionaryId(bool createIfNotFound) const {
    return getNamedDictionaryId(L"ACAD_IMAGE_DICT", createIfNotFound);
}
