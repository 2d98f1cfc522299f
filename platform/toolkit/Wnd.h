#pragma once

#include "platform/Export.h"
#include "platform/toolkit/Menu.h"
#include "platform/toolkit/Rect.h"
#include "platform/toolkit/Toolkit.h"
#include "platform/toolkit/UserAction.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::ui {

enum class ControlKind {
    dialog,
    page,
    label,
    groupBox,
    image,
    button,
    commandButton,
    checkBox,
    radioButton,
    edit,
    comboBox,
    listBox,
    list,
    tree,
    tab,
    slider,
    swatchGrid,
    drawArea
};
KXPLATFORM_EXPORT const char* kindName(ControlKind kind);

// Who gets a key next: the dialog as usual, the focused control past the dialog, or nobody, as it was used.
enum class KeyRoute { dialog, control, used };

struct ControlSnapshot;

} // namespace tv::ui

// A window: a dialog or one of its controls. It owns its whole state. Two ways lead to a change:
// - dialog code calls the setters: the face is told, no handler runs;
// - the face reports what a person did (the user... operations): the state changes, then the handler runs. An
// action
//   on a window that is disabled, hidden, covered by another modal window or not on screen is refused.
class KXPLATFORM_EXPORT CWnd {
  public:
    // A control named as in the message files and the Designer file. Registers itself with the parent, which
    // must outlive it; the order of registration is the tab order.
    CWnd(CWnd& parent, const char* name);
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    const std::string& name() const { return m_name; }
    virtual tv::ui::ControlKind kind() const = 0;
    CWnd* GetParent() const { return m_parent; }
    CDialog* dialog() const { return m_dialog; } // the dialog this window stands in, or is
    const std::vector<CWnd*>& children() const { return m_children; }
    // This window's descendant of that name, null when there is none.
    CWnd* GetDlgItem(std::string_view name) const;

    // True from before OnInitDialog until the dialog has ended.
    bool IsWindow() const;

    void SetWindowText(std::wstring_view text);
    const std::wstring& GetWindowText() const { return m_text; }
    void EnableWindow(bool enable = true);
    bool IsWindowEnabled() const { return m_enabled; } // its own flag; a parent may still be disabled
    void ShowWindow(bool show = true);
    bool IsWindowVisible() const; // its own flag and its parents'
    bool shown() const { return m_visible; }
    // Controls: relative to the dialog's client area. Dialogs: on the screen.
    virtual void MoveWindow(const CRect& rect);
    const CRect& GetWindowRect() const { return m_rect; }
    CRect ClientToScreen(const CRect& rect) const;
    void SetFocus();
    virtual bool focusable() const { return false; }

    void SetToolTip(std::wstring_view text);
    const std::wstring& toolTip() const { return m_tooltip; }
    // Relative to the dialog font.
    void SetFontScale(double scale, bool bold = false);
    double fontScale() const { return m_fontScale; }
    bool fontBold() const { return m_fontBold; }

    // The control whose text names this one (a caption beside an edit field).
    void LabelledBy(const CWnd& label);
    const CWnd* label() const { return m_label; }
    // For controls no text on screen names.
    void SetAccessibleName(std::wstring_view text);
    // What a screen reader says: the own name, the label's text or the own text, without mnemonic and closing
    // colon.
    std::wstring accessibleName() const;
    // The key that Alt takes to this control: from its own text or its label's; 0 when it has none. Upper case.
    wchar_t mnemonic() const;

    // Opens a context menu and returns at once. It stays until an entry is chosen, whose work is done when the
    // menu has gone, or until the person does anything else; and not longer than this window. `at` is relative
    // to the window (in a list or a tree to its contents); without it the menu stands where it was asked for:
    // at the pointer, or at what the keyboard is at. Nothing opens when there are no entries, or nobody could
    // choose one.
    void ShowMenu(std::vector<tv::ui::MenuItem> items, std::optional<CPoint> at = {});

    // --- messages and timers
    // --------------------------------------------------------------------------------------
    static constexpr unsigned userMessage = 0x0400; // the first private message number
    // WindowProc gets the message when everything that is under way has finished, unless the window is gone by
    // then.
    void PostMessage(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0);
    virtual std::intptr_t WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam);
    // Starts or restarts the timer `id`; OnTimer(id) comes every `ms` until KillTimer.
    unsigned SetTimer(unsigned id, unsigned ms);
    void KillTimer(unsigned id);
    virtual void OnTimer(unsigned id);

    // --- the user path
    // -------------------------------------------------------------------------------------------- Any action
    // by kind; each control carries out what makes sense for it and refuses the rest. An open menu takes keys,
    // whatever else is done closes it.
    tv::ui::UserResult perform(const tv::ui::UserAction& action);
    // Why a person can't act on this window now; empty when he can.
    tv::ui::UserResult acceptsUser() const;
    tv::ui::UserResult refuse(std::wstring_view why) const;
    // The focus arrives, by mouse or keyboard.
    tv::ui::UserResult userFocus();
    // A key before the dialog's own use of it: asked of the control that has the focus, then of those it stands
    // in.
    virtual tv::ui::KeyRoute routeKey(const tv::ui::KeyEvent&) { return tv::ui::KeyRoute::dialog; }
    // A key the dialog did not take; true when the control used it.
    virtual bool controlKey(const tv::ui::KeyEvent& key);
    // Told when the keyboard focus came or went by a person's action.
    virtual void OnSetFocus() {}
    virtual void OnKillFocus() {}
    // Told when its own enabled or visible flag changed.
    virtual void OnEnable(bool /*enabled*/) {}
    virtual void OnShowWindow(bool /*shown*/) {}

    // Fills what automation and failure dumps show of this control.
    virtual void describe(tv::ui::ControlSnapshot& out) const;

  protected:
    explicit CWnd(CWnd* owner); // a dialog: no parent in the window tree
    void tell(tv::ui::Change change);
    virtual tv::ui::UserResult carryOut(const tv::ui::UserAction& action);
    void takeFocus(); // as a click does, before the handler
    // A child that is going to be destroyed belongs to the window no more; nobody can act on it.
    void dropChild(CWnd& child);
    // The window on screen is gone; the control may be used again in another one.
    virtual void OnWindowGone() {}
    void setTextSilently(std::wstring_view text) { m_text = text; }

  private:
    friend class CDialog;
    CWnd* m_parent = nullptr;
    CDialog* m_dialog = nullptr;
    std::string m_name;
    std::vector<CWnd*> m_children;
    std::wstring m_text, m_tooltip, m_accessibleName;
    const CWnd* m_label = nullptr;
    CRect m_rect;
    bool m_enabled = true, m_visible = true;
    double m_fontScale = 1.0;
    bool m_fontBold = false;
    struct WindowTimer {
        tv::ui::Timer task; // stays in the queue when the timer is stopped, for the next start
        unsigned period = 0;
        bool running = false;
    };
    void timerDue(unsigned id);
    std::map<unsigned, WindowTimer> m_timers;
    std::shared_ptr<int> m_lifetime;
};

namespace tv::ui {
// "유형(&T):" without the parts that are not said: the mnemonic mark, a trailing "(&T)", the colon and dots.
KXPLATFORM_EXPORT std::wstring plainLabel(std::wstring_view text);
KXPLATFORM_EXPORT wchar_t mnemonicOf(std::wstring_view text);
} // namespace tv::ui
