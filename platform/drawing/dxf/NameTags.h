#pragma once

#include "platform/drawing/NameReferences.h"
#include "platform/drawing/dxf/RecordStore.h"

#include <string_view>
#include <unordered_set>
#include <vector>

namespace tv::dwg {

// Finds the tags by which a record refers to records of one kind by name. Made for one pass over a drawing.
class NameTags {
  public:
    // Layer states, which remember names rather than need their records, are left out when that is asked for.
    NameTags(const OdDbDatabase& database, NamedKind kind, bool withLayerStates = true);

    // Calls `visit(position, tag)` for each of them; positions count the record's tags from 0.
    template <class Visit>
    void forEach(RecordId id, Visit&& visit) {
        const Rule rule = ruleOf(id);
        const bool arrows = m_kind == NamedKind::kBlock && m_blocksByName;
        if (rule.codes == Codes::kNone && m_xdataCode == 0 && !arrows) return;
        TagCursor cursor = m_store.tags(id);
        std::size_t position = 0;
        int marks = 0;
        bool group = false;
        bool data = false;
        bool overrides = false; // inside the data where dimensions keep theirs
        bool done = rule.codes == Codes::kNone;
        std::int64_t number = -1; // the whole number before this tag, in extended data
        for (Tag tag; cursor.next(tag); ++position) {
            if (tag.code == 1001) {
                data = true;
                overrides = arrows && trimmed(tag.value) == "ACAD";
            }
            if (data) {
                const bool arrow = overrides && tag.code == 1000 && number >= 5 && number <= 7;
                if (tag.code == m_xdataCode || arrow) visit(position, tag);
                number = tag.code == 1070 ? integerOf(m_store.format(), tag).value_or(-1) : -1;
                continue;
            }
            if (tag.code == 102) group = trimmed(tag.value).starts_with('{');
            if (group || done) continue;
            // The names all entities have stand before their second subclass mark.
            if (tag.code == 100 && ++marks == 2 && rule.codes == Codes::kCommon) done = true;
            if (!rule.matches(tag.code, position)) continue;
            visit(position, tag);
            done = rule.codes == Codes::kFirst || rule.codes == Codes::kCommon;
        }
    }
    // Whether a record without such a tag means the name "Standard".
    bool missingMeansStandard(RecordId id) {
        return (m_kind == NamedKind::kTextStyle || m_kind == NamedKind::kDimStyle) && isEntity(id) &&
               ruleOf(id).codes != Codes::kNone;
    }

    // A layer state of this drawing; known where layers or linetypes are looked for.
    bool isLayerState(RecordId id) const { return m_layerStates.contains(id); }

  private:
    enum class Codes : std::uint8_t { kNone, kFirst, kAll, kCommon, kValue, kState, kArrows };
    struct Rule {
        Codes codes = Codes::kNone;
        int code = 0;
        bool matches(int tag, std::size_t position) const {
            switch (codes) {
            case Codes::kValue: // of a header variable
                return position == 1;
            case Codes::kState: // of a layer state: the current layer's name besides the layers'
                return tag == code || (code == 8 && tag == 302);
            case Codes::kArrows:
                return tag >= 5 && tag <= 7;
            default:
                return tag == code;
            }
        }
    };
    bool isEntity(RecordId id) const {
        const Section section = m_store.record(id).section;
        return section == Section::kEntities || section == Section::kBlocks;
    }
    Rule ruleOf(RecordId id);
    Rule ruleOfType(std::string_view type, Section section) const;
    Rule ruleOfVariable(RecordId id) const;

    const RecordStore& m_store;
    NamedKind m_kind;
    int m_xdataCode = 0;
    bool m_blocksByName = false;
    std::unordered_set<RecordId> m_layerStates;
    struct Known {
        bool known = false;
        Rule rule;
    };
    std::vector<Known> m_byType; // twice as many as types: entities and others
};

} // namespace tv::dwg
