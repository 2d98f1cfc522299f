#pragma once

#include "platform/Export.h"
#include "platform/text/Problem.h"

#include <filesystem>
#include <string>

namespace tv {

// Reads a whole ordinary file. `bytes` is empty when there is a problem (eFileNotFound, eFileAccess).
KXPLATFORM_EXPORT Problem readFile(const std::filesystem::path& file, std::string& bytes);

} // namespace tv
