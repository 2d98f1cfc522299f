#include "platform/toolkit/headless/SimulatedUser.h"

#include "platform/text/Unicode.h"

#include <algorithm>

namespace tv::ui {
namespace {

std::string utf8(std::wstring_view text) { return text::toUtf8(text); }

std::string onScreen(const Toolkit& toolkit) {
    std::string out = "on screen:\n";
    for (const CDialog* dialog : toolkit.modalStack()) out += toText(snapshot(*dialog));
    if (toolkit.modalStack().empty()) out += "nothing\n";
    return out;
}

} // namespace

CWnd* WindowUser::find(std::string_view control) const {
    CWnd* wnd = m_dialog.GetDlgItem(control);
    if (!wnd) m_user.fail("no control " + std::string(control) + " in\n" + toText(snapshot(m_dialog)));
    return wnd;
}

void WindowUser::act(std::string_view control, const UserAction& action) {
    CWnd* wnd = control.empty() ? &m_dialog : find(control);
    if (!wnd) return;
    if (const auto result = m_user.hand().act(*wnd, action); !result)
        m_user.fail("refused: " + utf8(result.refusal) + "\n" + toText(snapshot(m_dialog)));
}

std::wstring WindowUser::refused(std::string_view control, const UserAction& action) {
    CWnd* wnd = control.empty() ? &m_dialog : find(control);
    if (!wnd) return {};
    const auto result = m_user.hand().act(*wnd, action);
    if (result) m_user.fail("not refused as it should be: " + std::string(control) + "\n" + toText(snapshot(m_dialog)));
    return result.refusal;
}

void WindowUser::click(std::string_view control) { act(control, {}); }

void WindowUser::type(std::string_view control, std::wstring_view text) {
    UserAction action;
    action.kind = UserAction::Kind::type;
    action.text = text;
    act(control, action);
}

void WindowUser::choose(std::string_view control, int index) {
    UserAction action;
    action.kind = UserAction::Kind::choose;
    action.index = index;
    act(control, action);
}

void WindowUser::choose(std::string_view control, std::wstring_view text) {
    UserAction action;
    action.kind = UserAction::Kind::choose;
    action.text = text;
    act(control, action);
}

void WindowUser::check(std::string_view control, int state) {
    UserAction action;
    action.kind = UserAction::Kind::check;
    action.checked = state;
    act(control, action);
}

void WindowUser::selectRows(std::string_view control, RowSet rows) {
    UserAction action;
    action.kind = UserAction::Kind::selectRows;
    action.rows = std::move(rows);
    act(control, action);
}

void WindowUser::key(std::wstring_view key) {
    UserAction action;
    action.kind = UserAction::Kind::key;
    action.keyEvent = parseKey(key);
    if (action.keyEvent.key == Key::none) return m_user.fail("no such key: " + utf8(key));
    act({}, action);
}

void WindowUser::closeBox() {
    UserAction action;
    action.kind = UserAction::Kind::closeBox;
    act({}, action);
}

std::wstring WindowUser::text(std::string_view control) const {
    const CWnd* wnd = find(control);
    return wnd ? wnd->GetWindowText() : std::wstring();
}

ControlSnapshot WindowUser::look(std::string_view control) const {
    ControlSnapshot out;
    if (const CWnd* wnd = find(control)) wnd->describe(out);
    return out;
}

SimulatedUser::SimulatedUser(Toolkit& toolkit, Fail fail, std::unique_ptr<Hand> hand)
    : m_toolkit(toolkit), m_fail(std::move(fail)), m_hand(std::move(hand)) {
    m_toolkit.setDriver(this);
}

SimulatedUser::~SimulatedUser() {
    if (m_toolkit.driver() == this) m_toolkit.setDriver(nullptr);
    for (const auto& expected : m_expected) m_fail("expected, but never came: " + expected.what);
}

void SimulatedUser::expectBox(std::wstring_view text, std::string_view button) {
    add({"a box with \"" + utf8(text) + "\"",
         [needle = utf8(text)](CDialog& d) { return toText(snapshot(d)).find(needle) != std::string::npos; },
         [button = std::string(button)](WindowUser& u) { u.click(button); },
         {}});
}

void SimulatedUser::expectRequest(std::wstring_view prompt, UserAction action) {
    add({"a request \"" + utf8(prompt) + "\"", {}, {}, std::move(action)});
}

bool SimulatedUser::step(Waiting& waiting) {
    if (waiting.dialog && std::find(m_handled.begin(), m_handled.end(), waiting.dialog) != m_handled.end()) return false;
    if (m_expected.empty()) return false;
    const bool asksForWindow = static_cast<bool>(m_expected.front().matches);
    if (asksForWindow != (waiting.dialog != nullptr)) return false;
    if (waiting.dialog && !m_expected.front().matches(*waiting.dialog)) return false;
    const Expected expected = std::move(m_expected.front());
    m_expected.pop_front();
    if (!waiting.dialog) {
        if (!waiting.supply) return false;
        if (const auto result = waiting.supply(expected.answer); !result) m_fail("refused: " + utf8(result.refusal));
        return true;
    }
    m_handled.push_back(waiting.dialog);
    WindowUser window(*this, *waiting.dialog);
    expected.does(window);
    if (!waiting.dialog->running()) std::erase(m_handled, waiting.dialog);
    return true;
}

void SimulatedUser::lost(Waiting& waiting) {
    std::string message;
    if (waiting.dialog && std::find(m_handled.begin(), m_handled.end(), waiting.dialog) != m_handled.end())
        message = "the window was left open by its expectation";
    else if (m_expected.empty())
        message = "nothing was expected";
    else
        message = "expected instead: " + m_expected.front().what;
    if (!waiting.prompt.empty()) message += ", asked for \"" + utf8(waiting.prompt) + "\"";
    std::erase(m_handled, waiting.dialog);
    m_fail(message + "; " + onScreen(m_toolkit));
}

} // namespace tv::ui
