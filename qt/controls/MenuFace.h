#pragma once

#include "platform/toolkit/Toolkit.h"

#include <QObject>
#include <QPointer>

class QMenu;
class QPoint;
class QWidget;

namespace tv::qt {

// Shows the toolkit's open menu, above one of its windows.
class MenuFace : public QObject {
  public:
    explicit MenuFace(ui::Toolkit& toolkit) : m_toolkit(toolkit) {}
    ~MenuFace() override { hide(); }

    void show(const ui::Menu& menu, QWidget& window, QPoint at);
    void hide();
    // The keyboard is at another of the entries.
    void moved(const ui::Menu& menu);

  private:
    ui::Toolkit& m_toolkit;
    QPointer<QMenu> m_shown;
};

} // namespace tv::qt
