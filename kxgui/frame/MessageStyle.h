#pragma once

#include "kxgui/Export.h"

#include <string>
#include <string_view>

// How a message box's style and text become a task dialog.
namespace kx::frame {

// The task-dialog icon of the style's bits 0xF0; 0: none.
KXGUI_EXPORT unsigned taskIconOf(unsigned style);
// The task-dialog buttons of the style's bits 0x0F. Abort/Retry/Ignore and Cancel/Try/Continue both become
// OK, Cancel and Retry: a task dialog has no Abort, Ignore or Continue.
KXGUI_EXPORT unsigned taskButtonsOf(unsigned style);
// The button that Enter presses, counted from 0 (bits 0xF00).
KXGUI_EXPORT int defaultButtonOf(unsigned style);

struct MessageText {
    std::wstring instruction; // the first sentence, with its closing mark
    std::wstring content;     // the rest, without the blanks and marks it begins with
};
// The first of ".!?\n" ends the instruction, unless it is the text's first character.
KXGUI_EXPORT MessageText splitMessage(std::wstring_view text);

} // namespace kx::frame
