#pragma once

#include "platform/Export.h"
#include "platform/drawing/EntityGeometry.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/Problem.h"

#include <variant>
#include <vector>

// Adding entities to a drawing, and copies of entities it has. A new entity is written in the form of the
// drawing's version, with a handle, the current layer and the current colour, linetype, scale, lineweight and
// plot style.
namespace tv::dwg {

// Where an entity goes: a space or a block definition.
class KXPLATFORM_EXPORT EntityHome {
  public:
    static EntityHome modelSpace(OdDbDatabase& database) { return {&database, {}, false}; }
    // Of the layout whose entities stand in the section of entities.
    static EntityHome paperSpace(OdDbDatabase& database) { return {&database, {}, true}; }
    // A block's record or definition; that of a space means the space.
    static EntityHome block(OdDbObjectId block);

    OdDbDatabase* database() const { return m_database; }
    OdDbObjectId blockId() const { return m_block; }
    bool isPaper() const { return m_paper; }

  private:
    EntityHome(OdDbDatabase* database, OdDbObjectId block, bool paper)
        : m_database(database), m_block(block), m_paper(paper) {}

    OdDbDatabase* m_database;
    OdDbObjectId m_block; // null for the spaces in the section of entities
    bool m_paper;
};

struct NewAttribute {
    OdString tag;
    TextGeometry text; // its text is the value
};
struct NewInsert {
    InsertGeometry insert;
    std::vector<NewAttribute> attributes;
};
struct NewAttributeDefinition {
    OdString tag, prompt;
    TextGeometry text; // its text is the default value
    bool constant = false, verify = false, preset = false;
};
// A linear dimension. The block that shows it is made in a plain manner: lines, arrow heads and the measurement
// by the style's sizes and decimals.
struct NewDimension {
    bool aligned = false; // else turned by `rotation`
    OdGePoint3d first, second;
    OdGePoint3d linePoint; // any point of the dimension line
    double rotation = 0;
    OdString text;  // instead of the measurement
    OdString style; // empty for the current one
};
// An area filled solid. Of nested outlines every second one is a hole.
struct NewFill {
    std::vector<PolylineGeometry> outlines; // closed; only positions and bulges count
};

using NewEntity = std::variant<LineGeometry, PointGeometry, CircleGeometry, ArcGeometry, EllipseGeometry,
                               PolylineGeometry, SolidGeometry, TextGeometry, MTextGeometry, NewInsert,
                               NewAttributeDefinition, NewDimension, NewFill>;

struct AppendResult {
    Tavo::ErrorStatus status = Tavo::eOk;
    OdDbObjectId id; // null unless eOk
};

// One undo step. Behind the last entity of its home. Texts without a style get the current one. Polylines are
// light ones where the version has them and the line is flat. Answers, and then changes nothing:
//   eNotHandled    the version lacks the kind (ellipses, multiline texts and fills before R13)
//   eKeyNotFound   the block, text style or dimension style isn't in the drawing, or the home isn't
//   eInvalidInput  nothing to draw (no vertices, an empty tag), or an insert of a block in itself
//   eOutOfRange    a number that isn't finite, a radius or height not above 0
KXPLATFORM_EXPORT AppendResult appendEntity(const EntityHome& home, const NewEntity& shape);

// The same entity once more, with its sub-entities: the same tags under new handles. What ties the original to
// other objects is left behind: reactors, the extension dictionary, extended data that name objects,
// associations of hatches and leaders. eNotHandled for viewports, which can't be twice, for sub-entities,
// and for solids, regions and bodies whose shape the file keeps apart from them.
KXPLATFORM_EXPORT AppendResult copyEntity(OdDbObjectId entity, const EntityHome& home);

} // namespace tv::dwg
