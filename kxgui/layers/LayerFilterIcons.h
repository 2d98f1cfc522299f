#pragma once

#include "kxgui/layers/LayerFilterTree.h"
#include "platform/toolkit/DisplayList.h"

namespace kx::layers {

// What stands before a filter in the tree: 16 pixels square, of a shape of its own for each kind; one whose
// filter is faulty carries a mark.
KXGUI_EXPORT tv::ui::Picture filterIcon(LayerFilterTree::Kind kind, bool faulty);

} // namespace kx::layers
