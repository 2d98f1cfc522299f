#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <string>

namespace Tavo {

// What a host or drawing call answers. Anything but eOk means that nothing was changed.
enum ErrorStatus {
    eOk = 0,
    eInvalidInput,    // the argument makes no sense for this call
    eKeyNotFound,     // no such variable, record, command or file entry
    eWrongType,       // the value has another type than the variable
    eOutOfRange,      // the value is outside the allowed range
    eReadOnly,        // the variable, record or file may not be written
    eDuplicate,       // the name exists already
    eNotOpenForWrite, // the object was opened for reading only
    eWasErased,       // the object no longer exists
    eNoDatabase,      // there is no drawing to work on
    eFileNotFound,
    eFileAccess, // the file exists but can't be read or written
    eBadFile,    // the file's contents are damaged
    eNotHandled, // this default does not offer the service
    eCancelled   // the user ended the request
};

} // namespace Tavo

namespace tv {

// One fault in one clear sentence: what went wrong, where, and why. An empty sentence means "no fault".
struct Problem {
    Tavo::ErrorStatus status = Tavo::eOk;
    std::wstring sentence; // in the user's language, complete with file, line and reason
    std::wstring file;     // the file it was found in, empty when no file is concerned
    std::int64_t line = 0; // counted from 1; 0 when no line is concerned

    explicit operator bool() const { return status != Tavo::eOk; }
};

} // namespace tv
