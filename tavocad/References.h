#pragma once

#include "platform/text/OdString.h"

class OdDbDatabase;
class TavoCommandLine;

// The drawings a drawing refers to, in words.

// A line for every drawing referred to that can't be found, as far as there are not too many.
void tellMissingReferences(OdDbDatabase& database, TavoCommandLine& line);
// All of them: name, how it is attached, path, and whether it is there. False when there are none.
bool listReferences(OdDbDatabase& database, TavoCommandLine& line);
