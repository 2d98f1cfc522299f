#pragma once

#include <string>
#include <string_view>

namespace tv::dwg {

// What bytes that are no DXF file seem to be, in the user's language; empty when nothing speaks for anything.
std::wstring seemsToBe(std::string_view bytes);

} // namespace tv::dwg
