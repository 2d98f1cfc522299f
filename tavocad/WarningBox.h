#pragma once

#include <string_view>

// Asks whether to do what can't be undone. No is the default and what Escape and the close box answer. The
// first sentence of the question stands out.
bool askWarning(std::wstring_view caption, std::wstring_view question);
