#pragma once

#include "platform/toolkit/headless/SimulatedUser.h"
#include "qt/QtToolkit.h"

class QString;
class QWidget;

// Does with mouse and keyboard events on the widgets what a person would do. Where a person could not (the
// widget is disabled, hidden, covered, or has no such item) the events are sent all the same, to show that they
// do nothing, and the control says why it refuses.
class NativeHand : public tv::ui::Hand {
  public:
    explicit NativeHand(QtToolkit& toolkit) : m_toolkit(toolkit) {}
    tv::ui::UserResult act(CWnd& wnd, const tv::ui::UserAction& action) override;

  private:
    // False when the action can't be made of events.
    bool send(CWnd& wnd, QWidget& widget, const tv::ui::UserAction& action);
    bool chooseFromMenu(const tv::ui::UserAction& action);
    bool dragAndDrop(CWnd& wnd, QWidget& widget, const tv::ui::UserAction& action);
    QtToolkit& m_toolkit;
};

namespace native {
void click(QWidget& widget, int x, int y, bool twice = false, bool ctrl = false);
void rightClick(QWidget& widget, int x, int y);
void key(QWidget& window, const tv::ui::KeyEvent& key);
void type(QWidget& window, const QString& text);
} // namespace native
