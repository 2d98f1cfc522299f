#pragma once

#include "platform/toolkit/Page.h"
#include "platform/toolkit/TabCtrl.h"
#include "qt/controls/Bridge.h"

class QTabWidget;

namespace tv::qt {

// A page's controls have bridges of their own; a page of tabs is shown and hidden by these.
class PageBridge : public Bridge {
  public:
    PageBridge(CPage& page, QWidget& widget, bool inTabs) : Bridge(page, widget), m_inTabs(inTabs) {}

  protected:
    void show(ui::Change) override {}
    void showVisible() override {
        if (!m_inTabs) Bridge::showVisible();
    }

  private:
    bool m_inTabs;
};

class TabBridge : public Bridge {
  public:
    TabBridge(CTabCtrl& tabs, QTabWidget& widget);
    // The control's pages in their order; the tabs take ownership.
    void addPage(QWidget& page);

  protected:
    void show(ui::Change change) override;

  private:
    CTabCtrl& m_control;
    QTabWidget& m_tabs;
};

} // namespace tv::qt
