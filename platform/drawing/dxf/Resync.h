#pragma once

#include "platform/drawing/dxf/DxfFormat.h"

#include <cstddef>
#include <string_view>

namespace tv::dwg {

// Where, at `from` or behind it, reading can go on after damage: at a group code 0 whose value looks like the
// name of a record's type or, inside the header, at a group code 9 with a variable's name. npos when nothing
// follows.
std::size_t nextRecordStart(const DxfFormat& format, std::string_view bytes, std::size_t from, bool inHeader);

} // namespace tv::dwg
