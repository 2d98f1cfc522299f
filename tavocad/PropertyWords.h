#pragma once

#include "platform/text/OdString.h"

#include <string_view>

// What a person reads for the name of a property or of one of its choices, in the current language. A name
// nobody has words for, as entities of other programs may have, stays as it is.
OdString propertyWord(std::wstring_view name);
