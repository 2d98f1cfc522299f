#pragma once

#include "platform/Export.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/OdDbEntity.h"
#include "platform/drawing/entities/MTextRuns.h"

#include <string_view>
#include <vector>

// A text of several lines with formatting codes in it (see MTextRuns.h).
class KXPLATFORM_EXPORT OdDbMText : public OdDbEntity {
  public:
    using OdDbEntity::OdDbEntity;

    // The pieces the file cuts it into, joined; control characters where the file has caret forms.
    OdString contents() const;
    // Cuts it into pieces again. Columns and everything else stay.
    Tavo::ErrorStatus setContents(std::wstring_view contents);
    OdString plainText() const { return tv::dwg::plainText(contents().view()); }
    std::vector<tv::dwg::MTextRun> runs() const { return tv::dwg::mtextRuns(contents().view()); }

    OdString textStyleName() const;
    OdGePoint3d position() const { return {realAt(10), realAt(20), realAt(30)}; }
    double textHeight() const { return realAt(40); }
    // Of the column lines are broken to; 0 for no breaking.
    double width() const { return realAt(41); }
    // 1 top left to 9 bottom right, row by row.
    int attachment() const { return integerAt(71, 1); }
    // Radians, by direction or angle, whichever the file has last.
    double rotation() const;
};
using OdDbMTextPtr = std::shared_ptr<OdDbMText>;
