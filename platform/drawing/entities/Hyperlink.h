#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/OdString.h"
#include "platform/text/Problem.h"

#include <optional>

// The hyperlink on an entity, kept as extended data of the application "PE_URL".
namespace tv::dwg {

struct Hyperlink {
    OdString url;
    OdString description; // what is shown instead of the address
    OdString subLocation; // a named view, sheet or bookmark in the target
    friend bool operator==(const Hyperlink&, const Hyperlink&) = default;
};

// Nothing when the entity has none.
KXPLATFORM_EXPORT std::optional<Hyperlink> hyperlinkOf(OdDbObjectId entity);
// Adds or changes it. What else stands in the data (flags) is kept; the application is registered when it
// isn't.
KXPLATFORM_EXPORT Tavo::ErrorStatus setHyperlink(OdDbObjectId entity, const Hyperlink& link);
KXPLATFORM_EXPORT Tavo::ErrorStatus removeHyperlink(OdDbObjectId entity);

} // namespace tv::dwg
