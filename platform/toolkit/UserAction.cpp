#include "platform/toolkit/UserAction.h"

#include "platform/text/Unicode.h"

#include <array>

namespace tv::ui {
namespace {

struct NamedKey {
    const wchar_t* name;
    Key key;
};

constexpr std::array<NamedKey, 20> namedKeys{
    {{L"enter", Key::enter}, {L"escape", Key::escape}, {L"esc", Key::escape},
     {L"tab", Key::tab},     {L"space", Key::space},   {L"backspace", Key::backspace},
     {L"delete", Key::del},  {L"left", Key::left},     {L"right", Key::right},
     {L"up", Key::up},       {L"down", Key::down},     {L"home", Key::home},
     {L"end", Key::end},     {L"pageup", Key::pageUp}, {L"pagedown", Key::pageDown},
     {L"f1", Key::f1},       {L"f2", Key::f2},         {L"f4", Key::f4},
     {L"f10", Key::f10},     {L"menu", Key::menu}}};

} // namespace

KeyEvent parseKey(std::wstring_view text) {
    KeyEvent event;
    for (;;) {
        const auto plus = text.find(L'+');
        if (plus == std::wstring_view::npos || plus == 0 || plus + 1 >= text.size()) break;
        const std::wstring modifier = text::foldCase(text.substr(0, plus));
        if (modifier == L"ctrl")
            event.ctrl = true;
        else if (modifier == L"alt")
            event.alt = true;
        else if (modifier == L"shift")
            event.shift = true;
        else
            return {};
        text.remove_prefix(plus + 1);
    }
    const std::wstring folded = text::foldCase(text);
    for (const auto& named : namedKeys)
        if (folded == named.name) event.key = named.key;
    if (event.key == Key::none && text.size() == 1) {
        event.key = text.front() == L' ' ? Key::space : Key::character;
        event.ch = event.ctrl || event.alt ? text::toUpper(text).front() : text.front();
    }
    return event.key == Key::none ? KeyEvent{} : event;
}

} // namespace tv::ui
