#pragma once

#include "platform/toolkit/Wnd.h"

#include <optional>

class CButton;

// End codes and standard button results.
enum : int {
    IDOK = 1,
    IDCANCEL = 2,
    IDABORT = 3,
    IDRETRY = 4,
    IDIGNORE = 5,
    IDYES = 6,
    IDNO = 7,
    IDCLOSE = 8,
    IDHELP = 9
};

// What a point of a window's outer rectangle belongs to.
enum class HitTest { client, caption, left, right, top, bottom, topLeft, topRight, bottomLeft, bottomRight };

// A dialog made from a template of a loaded module (tv::ui::ModuleChain): modal with DoModal, or with Create
// one that stays while the program goes on.
class KXPLATFORM_EXPORT CDialog : public CWnd {
  public:
    // `owner` is the window it stands above; null: the program's main window.
    CDialog(unsigned templateId, CWnd* owner);
    ~CDialog() override;

    tv::ui::ControlKind kind() const override { return tv::ui::ControlKind::dialog; }
    unsigned templateId() const { return m_templateId; }
    const std::string& templateName() const { return name(); }
    CWnd* GetOwner() const { return m_owner; }

    // Creates the window, runs it until EndDialog and returns the end code; -1 when the template is not found
    // in any loaded module or no toolkit is there to show it.
    virtual int DoModal();
    // Creates the window and shows it; it stays until DestroyWindow, or until the window it belongs to is gone.
    // False when DoModal would answer -1, or when OnInitDialog has ended it.
    virtual bool Create();
    // Takes a window made with Create away. The object stays and can create its window again. A class with
    // OnDestroy of its own calls this in its destructor.
    void DestroyWindow();
    bool modeless() const { return m_modeless; }
    // Made with Create the window stands within the program's main window, which places it; it has no frame and
    // no title bar.
    virtual bool embedded() const { return false; }
    // Ends the run. Ignored when the dialog is not running or has ended already: the first end counts. A window
    // made with Create is taken away when everything under way has finished.
    void EndDialog(int code);
    bool running() const { return m_running && !m_endCode; }
    bool created() const { return m_created; }

    void MoveWindow(const CRect& rect) override;
    // The smallest size a person can give it; 0: no limit.
    CSize minimumSize() const { return m_minimum; }
    bool sizingFrame() const { return m_sizingFrame; }
    double opacity() const { return m_opacity; }
    void SetOpacity(double opacity);

    CWnd* GetFocus() const { return m_focus; }
    // The button Enter presses; "IDOK" unless set.
    void SetDefaultButton(CButton& button);
    CButton* defaultButton() const;

    // --- called by the toolkit ---

    // Returns nonzero when the toolkit should set the first focus.
    virtual int OnInitDialog() { return 1; }
    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }
    // Any key before the dialog's own use of it; true swallows it.
    virtual bool PreTranslateMessage(const tv::ui::KeyEvent&) { return false; }
    virtual void OnSize(unsigned /*type*/, int /*cx*/, int /*cy*/) {}
    virtual HitTest OnNcHitTest(CPoint) { return HitTest::client; }
    // Returns true when the help request was handled.
    virtual bool OnHelpInfo() { return false; }
    // An input method starts or stops composing in one of the controls.
    virtual void OnImeComposing(bool) {}
    // The cursor over the dialog is the text cursor for now.
    virtual bool wantsTextCursor() const { return false; }
    // The hint for an area of the client rectangle that belongs to no control with a hint of its own; empty:
    // none.
    virtual std::wstring toolTipAt(CPoint) { return {}; }
    // sizeMessage arrives as OnSize with the present size.
    std::intptr_t WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;
    static constexpr unsigned sizeMessage = 0x0005;

    // --- the user path ---

    tv::ui::UserResult carryOut(const tv::ui::UserAction& action) override;
    // The close box of the title bar.
    tv::ui::UserResult userClose();
    // Any key pressed while the dialog is topmost.
    tv::ui::UserResult userKey(const tv::ui::KeyEvent& key);
    // What the window has put off to a moment later happens now, before somebody looks who can't wait.
    virtual void settle() {}
    // Whether Alt with this letter (upper case) leads to one of the controls.
    bool hasMnemonic(wchar_t ch) const;
    // The part of userKey that is the dialog's (Enter, Escape, Tab, mnemonics, F1); true when it was used. A
    // face whose widgets handle the other keys themselves calls this first.
    bool dialogKey(const tv::ui::KeyEvent& key);
    // A person dragged the frame; never below the minimum size.
    tv::ui::UserResult userResize(CSize size);
    tv::ui::UserResult userMove(CPoint topLeft);

    // Controls Tab goes through, in their order: focusable, visible, enabled; of a radio group the checked
    // button.
    std::vector<CWnd*> tabOrder() const;

  protected:
    // A person moved or resized the window.
    virtual void OnPlacedByUser(bool /*resized*/) {}
    // The run is over; the controls still have what the person left in them.
    virtual void OnDestroy() {}
    // The keyboard came to this modeless window or went to another one.
    virtual void keyboardCame();
    virtual void keyboardWent();
    // No control has the focus any more; nothing is told but the face.
    void ClearFocus() { moveFocusTo(nullptr, false); }
    void SetMinimum(CSize size) { m_minimum = size; }
    void SetSizingFrame(bool sizing) { m_sizingFrame = sizing; }

  private:
    friend class CWnd;
    friend class tv::ui::Toolkit;
    bool create();
    void initialise();
    void destroy();
    std::vector<CWnd*> controlsOf(wchar_t mnemonic) const;
    void layOutControls();
    void moveFocusTo(CWnd* wnd, bool byUser);
    bool focusNext(bool backwards);
    bool pressMnemonic(wchar_t ch);

    unsigned m_templateId;
    CWnd* m_owner;
    CWnd* m_focus = nullptr;
    CButton* m_default = nullptr;
    CSize m_minimum;
    bool m_sizingFrame = false;
    bool m_created = false, m_running = false, m_modeless = false;
    std::optional<int> m_endCode;
    double m_opacity = 1.0;
};
