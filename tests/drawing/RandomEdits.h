#pragma once

#include <functional>

class OdDbDatabase;

// Edits of every kind a drawing can take, chosen at random: for checks that undo gives the first bytes and redo
// the last whatever was done.
namespace drawings {

// Some number from 0 to below its argument.
using Random = std::function<unsigned(unsigned)>;

// One edit or a few that belong together. What it is and whether it is refused doesn't matter to the caller.
void editAnything(OdDbDatabase& database, const Random& random);

} // namespace drawings
