#pragma once

#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Snapshot.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace tv::ui {

class SimulatedUser;

// The hand that carries out a person's action: through the user path, or by real events on a face's widgets.
class KXPLATFORM_EXPORT Hand {
  public:
    virtual ~Hand() = default;
    virtual UserResult act(CWnd& wnd, const UserAction& action) { return wnd.perform(action); }
};

// What a test does in one window. Every action that is refused, and every control that does not exist, fails the test
// with a dump of the window.
class KXPLATFORM_EXPORT WindowUser {
  public:
    WindowUser(SimulatedUser& user, CDialog& dialog) : m_user(user), m_dialog(dialog) {}

    void click(std::string_view control);
    void type(std::string_view control, std::wstring_view text);
    void choose(std::string_view control, int index);
    void choose(std::string_view control, std::wstring_view text);
    void check(std::string_view control, int state = 1);
    void selectRows(std::string_view control, RowSet rows);
    void key(std::wstring_view key); // "Enter", "Alt+P", "Ctrl+C"
    void closeBox();
    // Any other action.
    void act(std::string_view control, const UserAction& action);
    // The action must be refused; returns the sentence.
    std::wstring refused(std::string_view control, const UserAction& action);

    std::wstring text(std::string_view control) const;
    ControlSnapshot look(std::string_view control) const;
    DialogSnapshot look() const { return snapshot(m_dialog); }
    std::wstring title() const { return m_dialog.GetWindowText(); }
    template <class Dialog>
    Dialog& as() const {
        return dynamic_cast<Dialog&>(m_dialog);
    }
    CDialog& dialog() const { return m_dialog; }
    SimulatedUser& user() const { return m_user; }

  private:
    CWnd* find(std::string_view control) const;
    SimulatedUser& m_user;
    CDialog& m_dialog;
};

// A person as a list of expectations, made before the program is triggered: which window will come up next, and what to
// do in it. An unexpected window, an expectation nobody met and a window left open fail with a dump of what was on
// screen; nothing is cancelled silently.
class KXPLATFORM_EXPORT SimulatedUser : public Driver {
  public:
    using Fail = std::function<void(const std::string& message)>;

    // Drives `toolkit` until destroyed. `fail` reports a fault to the test framework and returns.
    SimulatedUser(Toolkit& toolkit, Fail fail, std::unique_ptr<Hand> hand = std::make_unique<Hand>());
    ~SimulatedUser() override; // fails for every expectation that was not met

    template <class Dialog>
    void expect(std::function<void(WindowUser&)> does) {
        const auto matches = [](CDialog& dialog) {
            if constexpr (std::is_same_v<Dialog, CDialog>) return true;
            else return dynamic_cast<Dialog*>(&dialog) != nullptr;
        };
        add({typeid(Dialog).name(), matches, std::move(does), {}});
    }
    // A message box, or any other window, whose snapshot holds `text`; then presses `button`.
    void expectBox(std::wstring_view text, std::string_view button);
    // The program will ask for something outside a window (a point): answered by `action`.
    void expectRequest(std::wstring_view prompt, UserAction action);
    std::size_t open() const { return m_expected.size(); }

    bool step(Waiting& waiting) override;
    void lost(Waiting& waiting) override;
    void fail(const std::string& message) { m_fail(message); }
    Hand& hand() { return *m_hand; }

  private:
    struct Expected {
        std::string what;
        std::function<bool(CDialog&)> matches; // empty: a request outside a window
        std::function<void(WindowUser&)> does;
        UserAction answer;
    };
    void add(Expected expected) { m_expected.push_back(std::move(expected)); }
    Toolkit& m_toolkit;
    Fail m_fail;
    std::unique_ptr<Hand> m_hand;
    std::deque<Expected> m_expected;
    std::vector<CDialog*> m_handled; // windows whose expectation ran already
};

} // namespace tv::ui
