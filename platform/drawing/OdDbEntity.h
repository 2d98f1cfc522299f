#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdCmTransparency.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbObject.h"

#include <cstddef>
#include <iterator>

// What all entities have, also those of kinds nobody here knows. A setter answers eNotHandled for what the
// drawing's version has no place for; setting what a missing tag means takes the tag away.
class KXPLATFORM_EXPORT OdDbEntity : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    // "0" when the entity names none.
    OdString layer() const;
    OdDbObjectId layerId() const;
    // eKeyNotFound for a layer the drawing lacks. Sub-entities keep theirs.
    Tavo::ErrorStatus setLayer(std::wstring_view name);

    // By layer when the entity says nothing. True colours are of R2004 and later.
    OdCmColor color() const;
    // Also forgets the colour book's name.
    Tavo::ErrorStatus setColor(const OdCmColor& color);
    // "BOOK$COLOUR" when the colour was taken from a colour book.
    OdString colorBookName() const;
    // Sets a true colour together with its name in a book.
    Tavo::ErrorStatus setBookColor(const OdCmColor& color, std::wstring_view bookName);

    // "BYLAYER" when the entity says nothing.
    OdString linetype() const;
    // Null for by layer and by block.
    OdDbObjectId linetypeId() const;
    Tavo::ErrorStatus setLinetype(std::wstring_view name);
    double linetypeScale() const;
    Tavo::ErrorStatus setLinetypeScale(double scale);

    OdDb::LineWeight lineWeight() const;
    Tavo::ErrorStatus setLineWeight(OdDb::LineWeight weight);

    OdCmTransparency transparency() const;
    Tavo::ErrorStatus setTransparency(OdCmTransparency transparency);

    OdDb::PlotStyleNameType plotStyleNameType() const;
    // The placeholder in the dictionary of plot styles; null unless the style is by id.
    OdDbObjectId plotStyleNameId() const;
    // The name it has in that dictionary; empty unless the style is by id.
    OdString plotStyleName() const;
    // The id counts for kPlotStyleNameById only, which needs one (else eInvalidInput).
    Tavo::ErrorStatus setPlotStyleName(OdDb::PlotStyleNameType type, OdDbObjectId id = {});

    // Null by layer.
    OdDbObjectId materialId() const;
    Tavo::ErrorStatus setMaterial(OdDbObjectId material);
    OdDb::ShadowFlags shadowMode() const;
    Tavo::ErrorStatus setShadowMode(OdDb::ShadowFlags mode);

    bool isVisible() const;
    Tavo::ErrorStatus setVisible(bool visible);
    bool isInPaperSpace() const;

    OdDbObjectId ownerId() const override;

  private:
    std::int64_t commonInteger(int code, std::int64_t otherwise) const;
    OdString commonText(int code) const;
    OdDbObjectId commonId(int code) const;
    // Like setAt and removeAt, in the common part and in the order files have its tags.
    Tavo::ErrorStatus setCommon(int code, const tv::dwg::Value& value);
    Tavo::ErrorStatus removeCommon(int code) { return removeAt(code, Part::kCommon); }
};
using OdDbEntityPtr = std::shared_ptr<OdDbEntity>;

// The main entities of a space or block in file order. Sub-entities (vertices, attributes, sequence ends) are
// left out; see subEntities(). Editing the entity an iterator stands at is allowed, erasing it is not.
class KXPLATFORM_EXPORT OdDbEntityRange {
  public:
    enum Kind : std::uint8_t { kBlock, kModel, kPaper, kSubEntities };

    class KXPLATFORM_EXPORT Iterator {
      public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = OdDbObjectId;
        using difference_type = std::ptrdiff_t;
        using pointer = const OdDbObjectId*;
        using reference = OdDbObjectId;

        Iterator() = default;
        OdDbObjectId operator*() const { return {m_database, m_record}; }
        Iterator& operator++();
        Iterator operator++(int) {
            Iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_record == b.m_record; }

      private:
        friend class OdDbEntityRange;
        OdDbDatabase* m_database = nullptr;
        tv::dwg::RecordId m_start = tv::dwg::kNoRecord;
        tv::dwg::RecordId m_record = tv::dwg::kNoRecord;
        Kind m_kind = kBlock;
    };

    OdDbEntityRange() = default;
    // `start` is the BLOCK record, the ENTITIES section's record or the main entity.
    OdDbEntityRange(OdDbDatabase& database, tv::dwg::RecordId start, Kind kind)
        : m_database(&database), m_start(start), m_kind(kind) {}

    Iterator begin() const;
    Iterator end() const { return {}; }
    bool empty() const { return begin() == end(); }

  private:
    OdDbDatabase* m_database = nullptr;
    tv::dwg::RecordId m_start = tv::dwg::kNoRecord;
    Kind m_kind = kBlock;
};

namespace tv::dwg {
// The vertices of a polyline or the attributes of an insert, with the SEQEND that ends them; empty for others.
KXPLATFORM_EXPORT OdDbEntityRange subEntities(OdDbObjectId main);
} // namespace tv::dwg
