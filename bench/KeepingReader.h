#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>

namespace bench {

// Reads a drawing with dxflib into plain vectors of layers, lines, circles and the like, each with its
// attributes, and gives their number. Nothing where the program was built without dxflib.
std::optional<std::size_t> readAndKeepWithDxflib(const std::filesystem::path& file);

} // namespace bench
