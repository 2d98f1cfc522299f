#pragma once

#include "platform/Export.h"
#include "platform/text/Problem.h"

#include <filesystem>
#include <string>

namespace tv {

// Why the operating system refused a file, in the user's language and without a full stop. `error` is an errno
// value.
KXPLATFORM_EXPORT std::wstring fileErrorReason(int error);

// The same as a problem about `file`: eFileNotFound, eReadOnly or eFileAccess. `doing` is one of the two.
enum class FileAction { Read, Write };
KXPLATFORM_EXPORT Problem fileProblem(FileAction doing, const std::filesystem::path& file, int error);

} // namespace tv
