#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/text/Problem.h"

#include <cstddef>
#include <span>
#include <vector>

// Several layers become one: what is on them and refers to them moves to a target, and they are erased.
namespace kx::layers {

// Why these layers can't be merged into others, in one sentence for the person. Layer 0, the current layer and
// layers of external references stay.
KXGUI_EXPORT tv::Problem canMergeAway(const OdDbDatabase& database, std::span<const OdDbObjectId> layers);
// The same, with the layer they are to become: one of the drawing's own and none of them.
KXGUI_EXPORT tv::Problem canMerge(const OdDbDatabase& database, std::span<const OdDbObjectId> layers,
                                  OdDbObjectId target);

// The layers others can be merged into, in the order of the table.
KXGUI_EXPORT std::vector<OdDbObjectId> mergeTargets(const OdDbDatabase& database,
                                                    std::span<const OdDbObjectId> layers);

struct MergeResult {
    tv::Problem problem;    // then nothing was changed
    std::size_t layers = 0; // erased
    std::size_t edited = 0; // records that refer to the target now
};
// One pass over the drawing and one undo step named "_LAYER". Entities in every space and block, frozen layers
// of viewports, group filters and layer states follow; a list that would name the target twice names it once.
// What a merged layer looked like in single viewports goes with it: the target looks as it did.
KXGUI_EXPORT MergeResult mergeLayers(OdDbDatabase& database, std::span<const OdDbObjectId> layers,
                                     OdDbObjectId target);

} // namespace kx::layers
