#pragma once

#include "qt/TemplateLoader.h"
#include "qt/controls/Bridge.h"

#include <QHash>

#include <memory>
#include <string>
#include <vector>

class CPage;
class CTabCtrl;

namespace tv::qt {

// Ties the controls of a dialog to the widgets of its Designer file by their names, both ways. A control
// without a fitting widget gets one at the end of the layout, so that nothing is lost; every misfit is a
// problem in one sentence.
class Binder {
  public:
    explicit Binder(const TemplateLoader& loader) : m_loader(loader) {}

    // `scope` holds the widgets of the template `templateName`, `container` its controls.
    void bind(CWnd& container, QWidget& scope, const std::string& templateName);

    std::vector<std::unique_ptr<Bridge>> takeBridges() { return std::move(m_bridges); }
    std::vector<std::wstring> takeProblems() { return std::move(m_problems); }

  private:
    struct Scope {
        QWidget& widget;
        std::string templateName;
        QHash<QString, QWidget*> named; // not yet claimed
    };
    void bindChildren(CWnd& container, Scope& scope);
    std::unique_ptr<Bridge> bridgeFor(CWnd& wnd, Scope& scope);
    QWidget& placeFor(const CWnd& page, Scope& scope);
    QWidget* claim(const CWnd& wnd, Scope& scope); // the template's widget of that name, or a problem
    QWidget& create(const CWnd& wnd, Scope& scope);
    void bindPage(CPage& page, QWidget& place, bool inTabs);
    void bindTabs(CTabCtrl& tabs, Bridge& bridge);
    void problem(const Scope& scope, std::wstring_view what);

    const TemplateLoader& m_loader;
    std::vector<std::unique_ptr<Bridge>> m_bridges;
    std::vector<std::wstring> m_problems;
    std::vector<const CWnd*> m_tabPages; // pages of tabs, placed by these
};

} // namespace tv::qt
