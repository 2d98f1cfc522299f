#pragma once

#include "platform/host/DrawingTypes.h"
#include "platform/toolkit/UserAction.h"

#include <string_view>

class TavoSelection;
class TavoSelectionSet;

// Adds to `chosen` what a line of words says, or takes it out:
//   ALL, LAST, PREVIOUS, NONE           (or L, P)
//   WINDOW x,y x,y, CROSSING x,y x,y    (or W, C)
//   FENCE, WPOLYGON, CPOLYGON x,y ...   (or F, WP, CP)
//   x,y                                 the object at a point
//   REMOVE, ADD                         what follows is taken out, or added again (or R, A)
//   a handle                            any other hexadecimal number
// Words in any letter case; points as PointRequests reads them, "@" counting from the point before; a point
// finds what is within `tolerance`. Refused, with nothing changed, when a word makes no sense.
tv::ui::UserResult chooseByWords(const TavoSelection& selection, const OdDbDatabasePtr& database,
                                 double tolerance, std::wstring_view line, TavoSelectionSet& chosen);
// The same with what is selected.
tv::ui::UserResult selectByWords(TavoSelection& selection, const OdDbDatabasePtr& database, double tolerance,
                                 std::wstring_view line);
// The same for the words behind a command's name, which choose anew; only a line that begins with ADD or REMOVE
// goes on from what is selected.
tv::ui::UserResult chooseAnew(const TavoSelection& selection, const OdDbDatabasePtr& database, double tolerance,
                              std::wstring_view line, TavoSelectionSet& chosen);
