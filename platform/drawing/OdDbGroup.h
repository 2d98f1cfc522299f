#pragma once

#include "platform/Export.h"
#include "platform/drawing/OdDbObject.h"

#include <memory>
#include <span>
#include <string_view>
#include <vector>

// A named set of entities, in an order. Its name is its entry in the dictionary of groups; its members name it
// as a reactor. What is erased leaves its groups in the same step.
class KXPLATFORM_EXPORT OdDbGroup : public OdDbObject {
  public:
    using OdDbObject::OdDbObject;

    OdString getName() const;
    // eDuplicate for a name another group has.
    Tavo::ErrorStatus setName(std::wstring_view name);
    OdString description() const { return textAt(300); }
    Tavo::ErrorStatus setDescription(std::wstring_view text);
    bool isAnonymous() const { return integerAt(70) != 0; }
    // Whether picking one member picks them all.
    bool isSelectable() const { return integerAt(71) != 0; }
    Tavo::ErrorStatus setSelectable(bool selectable);

    // The members that exist, in order.
    std::vector<OdDbObjectId> entities() const;
    bool has(OdDbObjectId entity) const;
    // Behind the others, each once; one step. eInvalidInput for what is no entity of this drawing or carries no
    // handle.
    Tavo::ErrorStatus append(std::span<const OdDbObjectId> entities);
    // Those that are no members are passed over.
    Tavo::ErrorStatus remove(std::span<const OdDbObjectId> entities);
    Tavo::ErrorStatus clear();
    // The members stay and forget the group.
    Tavo::ErrorStatus erase() override;

  private:
    Tavo::ErrorStatus dropMembers(std::span<const OdDbObjectId> gone, bool all);
};
using OdDbGroupPtr = std::shared_ptr<OdDbGroup>;

namespace tv::dwg {
// A selectable group without members. A null id for an empty or known name and in drawings before R13.
KXPLATFORM_EXPORT OdDbObjectId addGroup(OdDbDatabase& database, std::wstring_view name,
                                        std::wstring_view description = {});
} // namespace tv::dwg
