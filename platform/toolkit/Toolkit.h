#pragma once

#include "platform/Export.h"
#include "platform/toolkit/Rect.h"
#include "platform/toolkit/UserAction.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CWnd;
class CDialog;

namespace tv::ui {

class Menu;
struct MenuItem;

// What changed in a window, for the face that shows it.
enum class Change {
    text,
    enabled,
    visible,
    rect,
    items,
    selection,
    checked,
    focus,
    tooltip,
    look,
    label,
    editing,
    scroll,  // a list shows other rows or another stretch of its columns
    columns, // order, width or visibility of a list's columns
    editor,  // a list's editor opened or closed
    dropDown // a combo box's list opened, closed, or another of its entries is highlighted
};

// A piece of work that waits for its time. Destroying or re-arming the handle cancels it.
class KXPLATFORM_EXPORT Timer {
  public:
    struct Task {
        std::function<void()> work;         // empty once it ran or was cancelled
        std::chrono::milliseconds queued{}; // where a queue has it
        std::chrono::milliseconds due{};    // when it runs: a queue that meets it earlier puts it in again
        void run();
    };

    Timer() = default;
    explicit Timer(std::shared_ptr<Task> task) : m_task(std::move(task)) {}
    Timer(Timer&&) noexcept = default;
    Timer& operator=(Timer&& other) noexcept;
    ~Timer() { cancel(); }

    bool pending() const { return m_task && m_task->work; }
    void cancel();

  private:
    friend class Toolkit;
    std::shared_ptr<Task> m_task;
};

// The program waits for a person: in a modal window, for a point in the drawing, or for the next command.
struct Waiting {
    CDialog* dialog = nullptr;  // the modal window, null for the other two
    std::wstring prompt;        // what is asked for, when not a window
    std::function<bool()> done; // true ends the wait
    std::function<UserResult(const UserAction&)>
        supply; // answers a request other than a window's; may be empty
};

// Whoever decides what happens next while the program waits: a test's simulated user or an automation pipe.
// Without one the face waits for the person in front of it.
class KXPLATFORM_EXPORT Driver {
  public:
    virtual ~Driver() = default;
    // Called when nothing else is due. Returns false when it has nothing to do for now (a face with an event
    // loop then sleeps until Toolkit::wake; the headless face treats it as a lost user and ends the wait).
    virtual bool step(Waiting& waiting) = 0;
    // The wait can never end: nobody is there to act. Called by the headless face before it ends the window.
    virtual void lost(Waiting& waiting) = 0;
};

// The seam between windows and whatever shows them. Windows own their state; a face observes it through
// `changed` and reports a person's actions through the windows' user path. One toolkit is current at a time;
// the newest one made takes over and its destruction gives the place back.
class KXPLATFORM_EXPORT Toolkit {
  public:
    Toolkit();
    virtual ~Toolkit();
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;

    static Toolkit* current();

    // --- time ---

    [[nodiscard]] Timer after(std::chrono::milliseconds delay, std::function<void()> work);
    // The work of `timer` runs that much later from now instead; costs next to nothing, however often it is
    // asked for. False, and nothing changed, when it no longer waits or would have to run earlier than it was
    // going to.
    bool postpone(Timer& timer, std::chrono::milliseconds delay) const;
    // Runs after everything already posted, never inside the event that asked for it.
    [[nodiscard]] Timer post(std::function<void()> work) {
        return after(std::chrono::milliseconds(0), std::move(work));
    }
    // As post, for work that outlives its asker.
    void postDetached(std::function<void()> work);
    virtual std::chrono::milliseconds now() const = 0;

    // --- windows ---

    // Shows `dialog` above all others and returns when it has ended.
    void runModal(CDialog& dialog);
    // Runs the loop until waiting.done().
    virtual void wait(Waiting& waiting) = 0;
    // Modal windows, the topmost last. A window that got out of the way (hidden for a pick) stays in the list.
    const std::vector<CDialog*>& modalStack() const { return m_modal; }
    // The window a person can act on: the topmost one, null when there is none or it is hidden.
    CDialog* topmost() const;
    // The windows that stay while the program goes on, in the order they came up.
    const std::vector<CDialog*>& modelessWindows() const { return m_modeless; }
    // Whether no other window keeps a person from this one: a modal window keeps him from all below it and from
    // every modeless window that does not belong to it.
    bool reachable(const CDialog& dialog) const;
    // The window that has the keyboard: the topmost modal one, else a modeless one; null: the program's main
    // window.
    CDialog* active() const;
    // Gives the keyboard to a modeless window, or with null back to the main window. Nothing happens while a
    // modal window is open.
    void activate(CDialog* dialog);
    // Where windows may be placed.
    virtual CRect workArea() const { return {0, 0, 1920, 1040}; }

    // --- the open menu; there is one at most ---

    const Menu* menu() const { return m_menu.get(); }
    void openMenu(CWnd& owner, std::vector<MenuItem> items, std::optional<CPoint> at);
    void closeMenu();
    // As closeMenu when it belongs to `wnd` or, with `within`, to a window in it.
    void closeMenuOf(const CWnd& wnd, bool within = false);
    // A person chooses an entry, by its texts or by its place (see Menu).
    UserResult userMenu(const std::vector<std::wstring>& path);
    UserResult userMenu(const std::vector<int>& place);
    UserResult userMenuKey(const KeyEvent& key);

    // --- told by windows ---

    virtual void changed(CWnd& wnd, Change change) = 0;
    virtual void show(CDialog& dialog) = 0;
    virtual void hide(CDialog& dialog) = 0;

    // --- the rest of the desk ---

    virtual void setClipboardText(const std::wstring& text) = 0;
    virtual std::wstring clipboardText() const = 0;
    // How wide a control shows a text, in logical pixels. Without pixels every character is as wide as a usual
    // one.
    virtual int textWidth(const CWnd& wnd, std::wstring_view text) const;
    virtual const char* name() const = 0; // "headless" or "qt"

    void setDriver(Driver* driver) { m_driver = driver; } // not owned; null: a person
    Driver* driver() const { return m_driver; }
    // The driver has something to do again.
    virtual void wake() {}

  protected:
    // A person went to another window, which is the present one already on screen. `dialog` is modeless, null:
    // the main window.
    void wentTo(CDialog* dialog);
    // The menu came, went, or the keyboard is at another of its entries.
    virtual void showMenu(const Menu& /*menu*/) {}
    virtual void hideMenu() {}
    virtual void menuMoved(const Menu& /*menu*/) {}
    // The keyboard shall go there on screen, too.
    virtual void showActive(CDialog* /*dialog*/) {}
    virtual void schedule(std::chrono::milliseconds delay, std::shared_ptr<Timer::Task> task) = 0;

  private:
    friend class ::CDialog;
    void addModeless(CDialog& dialog);
    void removeModeless(CDialog& dialog);
    void destroyOwnedBy(const CDialog& owner);

    Toolkit* m_previous;
    std::vector<CDialog*> m_modal, m_modeless;
    CDialog* m_active = nullptr; // one of m_modeless
    Driver* m_driver = nullptr;
    std::unique_ptr<Menu> m_menu;
};

} // namespace tv::ui
