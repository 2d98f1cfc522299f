#pragma once

#include "platform/Export.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tv::text {

// The format of message files. UTF-8, LF or CRLF, an optional byte order mark.
//
//     ; a comment, # too
//     IDS_SOME_KEY = a text            plain keys come before the first section
//     IDS_OTHER_KEY = "  quoted, so that blanks at the ends stay  "
//     [IDD_SOME_TEMPLATE]              then the control texts of one dialog template each
//     CAPTION = the window title
//     IDC_STATIC1 = Name\nsecond line
//
// Escapes, with or without quotes: \n \t \r \\ \" and \s for a blank. An unquoted text loses the blanks around
// it. A general INI reader is not used here: it gives no line numbers for its complaints, skips faulty lines
// silently and copies every key and text, which costs more than the ten thousand texts of a start-up may take.

struct MessageLine {
    std::string_view section; // empty for plain keys
    std::string_view key;
    std::string_view text; // without quotes around it, escapes still in place
    std::int64_t line;     // counted from 1
};

enum class MessageFault {
    NoEquals,      // neither comment, section nor KEY = text
    EmptyKey,      // nothing before the equals sign
    BadSection,    // no closing bracket, empty name or text behind the bracket
    UnknownEscape, // a backslash before a character that has no meaning after it
    OpenQuote,     // a quoted text that does not end, or goes on behind its end
    NotUtf8,       // bytes that are not UTF-8 text, or a NUL
    DuplicateKey   // the key was given before in the same file and section; the first text counts
};

// Goes through the file's bytes once. `onLine` returns false to refuse the key as a duplicate; a faulty line
// goes to `onFault` only and the next line is read. The views point into `bytes`.
KXPLATFORM_EXPORT void parseMessageFile(std::string_view bytes,
                                        const std::function<bool(const MessageLine&)>& onLine,
                                        const std::function<void(MessageFault, std::int64_t line)>& onFault);

// The wide text of MessageLine::text, escapes resolved.
KXPLATFORM_EXPORT std::wstring decodeMessageText(std::string_view text);

// A text as it can stand behind an equals sign whatever it contains, and back again. A text that is not
// completely in quotes comes back as it is.
KXPLATFORM_EXPORT std::string quoteMessageText(std::wstring_view text);
KXPLATFORM_EXPORT std::wstring unquoteMessageText(std::string_view text);

} // namespace tv::text
