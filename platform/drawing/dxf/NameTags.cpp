#include "platform/drawing/dxf/NameTags.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbDictionary.h"
#include "platform/drawing/OdDbDimStyleTable.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <initializer_list>

namespace tv::dwg {
namespace {

bool oneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isDimension(std::string_view type) {
    return oneOf(type, {"DIMENSION", "ARC_DIMENSION", "LARGE_RADIAL_DIMENSION"});
}

struct Naming {
    std::string_view variable;
    NamedKind kind;
};
constexpr Naming kNamings[] = {
    {"$CLAYER", NamedKind::kLayer},       {"$CELTYPE", NamedKind::kLinetype},
    {"$DIMLTYPE", NamedKind::kLinetype},  {"$DIMLTEX1", NamedKind::kLinetype},
    {"$DIMLTEX2", NamedKind::kLinetype},  {"$TEXTSTYLE", NamedKind::kTextStyle},
    {"$DIMTXSTY", NamedKind::kTextStyle}, {"$DIMSTYLE", NamedKind::kDimStyle},
    {"$DIMBLK", NamedKind::kBlock},       {"$DIMBLK1", NamedKind::kBlock},
    {"$DIMBLK2", NamedKind::kBlock},      {"$DIMLDRBLK", NamedKind::kBlock},
    {"$UCSNAME", NamedKind::kUcs},        {"$PUCSNAME", NamedKind::kUcs},
    {"$UCSBASE", NamedKind::kUcs},        {"$PUCSBASE", NamedKind::kUcs},
    {"$UCSORTHOREF", NamedKind::kUcs},    {"$PUCSORTHOREF", NamedKind::kUcs},
};

} // namespace

NameTags::NameTags(const OdDbDatabase& database, NamedKind kind, bool withLayerStates)
    : m_store(database.store()), m_kind(kind) {
    if (kind == NamedKind::kLayer) m_xdataCode = 1003;
    if (kind == NamedKind::kRegApp) m_xdataCode = 1001;
    m_blocksByName = OdDbDimStyleTableRecord::namesBlocks(database);
    if (!withLayerStates || (kind != NamedKind::kLayer && kind != NamedKind::kLinetype)) return;
    // Layer states are records without a type of their own, in a dictionary that hangs on the layer table.
    const OdDbObjectPtr layers = database.getLayerTableId().openObject();
    const auto attached = layers ? layers->extensionDictionary().open<OdDbDictionary>() : nullptr;
    const auto states = attached ? attached->getAt(L"ACAD_LAYERSTATES").open<OdDbDictionary>() : nullptr;
    if (!states) return;
    for (const OdDbDictionary::Entry& entry : states->entries())
        if (const OdDbObjectId state = database.getOdDbObjectId(entry.handle);
            !state.isNull() && m_store.typeName(state.record()) == "XRECORD")
            m_layerStates.insert(state.record());
}

NameTags::Rule NameTags::ruleOf(RecordId id) {
    const Record& record = m_store.record(id);
    if (record.flags & kHeaderVariable) return ruleOfVariable(id);
    if (record.flags & kStructure) return {};
    if (!m_layerStates.empty() && m_layerStates.contains(id))
        return {Codes::kState, m_kind == NamedKind::kLayer ? 8 : 6};
    if (record.type == kTypeOther) return ruleOfType(m_store.typeName(id), record.section);
    const std::size_t slot = record.type * std::size_t{2} + isEntity(id);
    if (slot >= m_byType.size()) m_byType.resize(slot + 64);
    Known& known = m_byType[slot];
    if (!known.known) known = {true, ruleOfType(m_store.typeName(id), record.section)};
    return known.rule;
}

NameTags::Rule NameTags::ruleOfVariable(RecordId id) const {
    TagCursor cursor = m_store.tags(id);
    Tag tag;
    if (!cursor.next(tag)) return {};
    const std::string_view name = trimmed(tag.value);
    for (const Naming& naming : kNamings)
        if (naming.kind == m_kind && naming.variable == name) return {Codes::kValue, 0};
    return {};
}

NameTags::Rule NameTags::ruleOfType(std::string_view type, Section section) const {
    const bool entity = section == Section::kEntities || section == Section::kBlocks;
    switch (m_kind) {
    case NamedKind::kLayer:
        if (entity) return {Codes::kCommon, 8};
        if (oneOf(type, {"LAYER_FILTER", "LAYER_INDEX"})) return {Codes::kAll, 8};
        return {};
    case NamedKind::kLinetype:
        if (entity) return {Codes::kCommon, 6};
        if (section == Section::kTables && type == "LAYER") return {Codes::kFirst, 6};
        if (type == "MLINESTYLE") return {Codes::kAll, 6};
        return {};
    case NamedKind::kTextStyle:
        if (entity &&
            oneOf(type, {"TEXT", "MTEXT", "ATTRIB", "ATTDEF", "ARCALIGNEDTEXT", "RTEXT", "ACAD_TABLE"}))
            return {Codes::kAll, 7};
        if (type == "TABLESTYLE") return {Codes::kAll, 7};
        return {};
    case NamedKind::kDimStyle:
        if (entity && (isDimension(type) || oneOf(type, {"LEADER", "TOLERANCE"}))) return {Codes::kFirst, 3};
        return {};
    case NamedKind::kBlock:
        if (entity && (isDimension(type) || oneOf(type, {"INSERT", "ACAD_TABLE"}))) return {Codes::kFirst, 2};
        if (section == Section::kTables && type == "DIMSTYLE" && m_blocksByName) return {Codes::kArrows, 0};
        return {};
    case NamedKind::kView:
        if (oneOf(type, {"LAYOUT", "PLOTSETTINGS"})) return {Codes::kFirst, 6};
        return {};
    default:
        return {};
    }
}

} // namespace tv::dwg
