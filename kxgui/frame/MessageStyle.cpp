#include "kxgui/frame/MessageStyle.h"

#include "platform/frx/TaskDialog.h"

namespace kx::frame {

using namespace zel::frx;

unsigned taskIconOf(unsigned style) {
    switch (style & 0xF0) {
    case 0x10: return taskIconError;
    case 0x20: return taskIconQuestion;
    case 0x30: return taskIconWarning;
    case 0x40: return taskIconInformation;
    default: return 0;
    }
}

unsigned taskButtonsOf(unsigned style) {
    switch (style & 0x0F) {
    case 0: return taskOK;
    case 1: return taskOK | taskCancel;
    case 2:
    case 6: return taskOK | taskCancel | taskRetry;
    case 3: return taskYes | taskNo | taskCancel;
    case 4: return taskYes | taskNo;
    case 5: return taskRetry | taskCancel;
    default: return 0;
    }
}

int defaultButtonOf(unsigned style) { return static_cast<int>((style & 0xF00) >> 8); }

MessageText splitMessage(std::wstring_view text) {
    const auto end = text.find_first_of(L".!?\n");
    if (end == std::wstring_view::npos || end == 0) return {std::wstring(text), {}};
    std::wstring_view rest = text.substr(end + 1);
    const auto from = rest.find_first_not_of(L" \t.!?\n");
    rest = from == std::wstring_view::npos ? std::wstring_view{} : rest.substr(from);
    return {std::wstring(text.substr(0, end + 1)), std::wstring(rest)};
}

} // namespace kx::frame
