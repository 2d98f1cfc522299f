#pragma once

#include "platform/toolkit/Wnd.h"

#include <QObject>
#include <QString>

#include <memory>

class QWidget;

namespace tv::qt {

inline QString toQt(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}

// A text without its mnemonic marks, as widgets show it that know no mnemonics.
QString withoutMnemonic(std::wstring_view text);
// A text in which every '&' stands for itself, for widgets that would read it as a mnemonic mark.
QString literal(std::wstring_view text);

// Ties one control to the widget that shows it. The control's state is the only truth: `changed` brings it into
// the widget without the widget's signals coming back, the widget's signals go to the control's user path, and
// whatever the control made of them is shown again, so that a refused action leaves no trace.
class Bridge : public QObject {
  public:
    Bridge(CWnd& wnd, QWidget& widget);

    CWnd& wnd() const { return m_wnd; }
    QWidget& widget() const { return m_widget; }

    // Shows everything of the control's state but its items, which only dialog code changes.
    void refresh();
    void changed(ui::Change change);
    // The control may be gone from now on: nothing is shown or reported any more.
    void retire();
    // The bridge of a control that comes and goes within this one (an editor in a cell); null when there is
    // none.
    virtual Bridge* inner() const { return nullptr; }
    // Its rectangle is another now.
    virtual void placeInner() {}
    // Where on the screen a menu stands that this control was asked for: below what the keyboard is at.
    virtual QPoint menuPlace() const;
    // A key the dialog did not take, before the widget gets it; true swallows it.
    virtual bool key(const ui::KeyEvent&) { return false; }

  protected:
    // Brings the part of the state that is this kind's own into the widget; its signals are blocked meanwhile.
    virtual void show(ui::Change change) = 0;
    virtual void showEnabled();
    virtual void showVisible();
    virtual void showLook();
    virtual void showNames();
    // Carries out what a person did and shows what became of it.
    template <class Action>
    void user(const Action& action) {
        if (m_showing || m_retired) return;
        (void)action();
        refresh();
    }
    bool showing() const { return m_showing; }

  private:
    void showOne(ui::Change change);
    CWnd& m_wnd;
    QWidget& m_widget;
    bool m_showing = false, m_retired = false;
};

} // namespace tv::qt
