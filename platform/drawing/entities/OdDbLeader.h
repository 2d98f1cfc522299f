#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"

#include <string_view>
#include <vector>

// An arrow with lines to its annotation, which is an entity of its own.
class KXPLATFORM_EXPORT OdDbLeader : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;
    OdString dimensionStyleName() const;
    Tavo::ErrorStatus setDimensionStyle(std::wstring_view name);
    std::vector<OdGePoint3d> vertices() const;
    bool hasArrowHead() const { return integerAt(71, 1) != 0; }
    bool isSplined() const { return integerAt(72) == 1; }
    // Null for a leader without one.
    OdDbObjectId annotationId() const { return idAt(340); }
};
using OdDbLeaderPtr = std::shared_ptr<OdDbLeader>;

// Leaders that hold their text or block themselves.
class KXPLATFORM_EXPORT OdDbMLeader : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;
    enum ContentType : std::uint8_t {
        kNoneContent = 0,
        kBlockContent = 1,
        kMTextContent = 2,
        kToleranceContent = 3
    };
    ContentType contentType() const;
    // With formatting codes, as in a multiline text; empty for other content.
    OdString contents() const;
    // eWrongType when the leader holds no text.
    Tavo::ErrorStatus setContents(std::wstring_view contents);
    // Null when the file names none or lacks it.
    OdDbObjectId styleId() const;
};
using OdDbMLeaderPtr = std::shared_ptr<OdDbMLeader>;
