#pragma once

#include "platform/Export.h"
#include "platform/drawing/dxf/RecordStore.h"
#include "platform/text/Problem.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tv::dwg {

struct ReadResult {
    std::unique_ptr<RecordStore> store; // null when the bytes are no drawing
    std::vector<tv::Problem> problems;
};

// Splits the bytes of a DXF file, text or binary, into records in one pass. From the first fault that makes the
// boundaries of records doubtful, the rest is kept as one unread record at the end. Every problem is one that
// may mean lost contents. `file` stands in the sentences.
KXPLATFORM_EXPORT ReadResult readDxf(std::string bytes, std::wstring_view file);

// Version and code page again from the header variables.
void learnVersion(RecordStore& store);

} // namespace tv::dwg
