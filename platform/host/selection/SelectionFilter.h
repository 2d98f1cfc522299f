#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDb.h"
#include "platform/text/OdString.h"

#include <functional>
#include <string_view>
#include <vector>

class OdDbEntity;

// Which entities are wanted. Every list that isn't empty must have one that fits; names ignore letter case and
// may hold "*" (anything) and "?" (one character). Colours, linetypes and lineweights are the entity's own, by
// layer among them.
struct TavoSelectionFilter {
    std::vector<OdString> types; // as in the file: "LINE", "*POLYLINE"
    std::vector<OdString> layers;
    std::vector<OdString> linetypes;
    std::vector<OdCmColor> colors;
    std::vector<OdDb::LineWeight> lineWeights;
    std::function<bool(const OdDbEntity&)> also; // asked last; may be empty

    bool wantsAll() const {
        return types.empty() && layers.empty() && linetypes.empty() && colors.empty() && lineWeights.empty() &&
               !also;
    }
    KXPLATFORM_EXPORT bool matches(const OdDbEntity& entity) const;
};

namespace tv::host {
// Whether the whole name fits a pattern with "*" and "?", letter case ignored.
KXPLATFORM_EXPORT bool fitsPattern(std::wstring_view name, std::wstring_view pattern);
} // namespace tv::host
