#pragma once

#include "platform/Export.h"
#include "platform/drawing/NameReferences.h"
#include "platform/drawing/OdDbObjectId.h"

#include <array>
#include <vector>

namespace tv::dwg {

// Which table records something in the drawing refers to, as found when generate() ran last. Edits made since
// are not seen: a dialog that offers records for deletion generates anew when it opens.
//
// In use is a record that an entity in any space or block, another table record, an object or a header variable
// refers to, by name or by a pointer of the kinds that keep an object alive. A block referred to from its own
// definition only is not. Layer 0, the linetypes ByLayer, ByBlock and Continuous, the text style Standard, the
// blocks of spaces and the styles of single dimension kinds whose parent is in use always are. Layer states,
// filters and the layers frozen in a viewport are no use of what they name.
class KXPLATFORM_EXPORT UsageData {
  public:
    // One pass over the drawing. Views, coordinate systems and applications are found too.
    void generate(const OdDbDatabase& database, NamedKind kind);
    bool generated(NamedKind kind) const { return !m_used[static_cast<std::size_t>(kind)].empty(); }
    // False for records made since, and while nothing was generated.
    bool inUse(OdDbObjectId record) const;

  private:
    std::array<std::vector<bool>, kNamedKinds> m_used; // by record
};

} // namespace tv::dwg
