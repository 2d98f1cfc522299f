#include "qt/Keys.h"

#include "platform/text/Unicode.h"

#include <QKeyEvent>

namespace tv::qt {
namespace {

ui::Key namedKey(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return ui::Key::enter;
    case Qt::Key_Escape:
        return ui::Key::escape;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return ui::Key::tab;
    case Qt::Key_Space:
        return ui::Key::space;
    case Qt::Key_Backspace:
        return ui::Key::backspace;
    case Qt::Key_Delete:
        return ui::Key::del;
    case Qt::Key_Left:
        return ui::Key::left;
    case Qt::Key_Right:
        return ui::Key::right;
    case Qt::Key_Up:
        return ui::Key::up;
    case Qt::Key_Down:
        return ui::Key::down;
    case Qt::Key_Home:
        return ui::Key::home;
    case Qt::Key_End:
        return ui::Key::end;
    case Qt::Key_PageUp:
        return ui::Key::pageUp;
    case Qt::Key_PageDown:
        return ui::Key::pageDown;
    case Qt::Key_F1:
        return ui::Key::f1;
    case Qt::Key_F2:
        return ui::Key::f2;
    case Qt::Key_F4:
        return ui::Key::f4;
    case Qt::Key_F10:
        return ui::Key::f10;
    case Qt::Key_Menu:
        return ui::Key::menu;
    default:
        return ui::Key::none;
    }
}

} // namespace

ui::KeyEvent toKeyEvent(const QKeyEvent& event) {
    ui::KeyEvent out;
    out.ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    out.alt = event.modifiers().testFlag(Qt::AltModifier);
    out.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    out.key = namedKey(event.key());
    if (out.key != ui::Key::none) return out;

    if (out.ctrl && out.alt) { // AltGr on some desktops: the text counts, not the keys
        out.ctrl = out.alt = event.text().isEmpty();
    }
    if (out.ctrl || out.alt) {
        // With these modifiers the text is a control character or missing; Qt's key codes are upper-case
        // characters.
        if (event.key() < 0x20 || event.key() >= 0x01000000) return out;
        out.ch = static_cast<wchar_t>(event.key());
        out.ch = text::toUpper(std::wstring_view(&out.ch, 1)).front();
    } else {
        const std::wstring typed = event.text().toStdWString();
        if (typed.empty() || typed.front() < 0x20 || typed.front() == 0x7f) return out;
        out.ch = typed.front();
    }
    out.key = ui::Key::character;
    return out;
}

} // namespace tv::qt
