#pragma once

#include <QTabBar>

// The tabs of the layouts. The one shown stands out in any theme, also when another window has the keyboard.
class LayoutTabs final : public QTabBar {
  public:
    using QTabBar::QTabBar;

  protected:
    QSize tabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
};
