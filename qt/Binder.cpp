#include "qt/Binder.h"

#include "platform/text/Format.h"
#include "platform/text/ResourceString.h"
#include "platform/text/Unicode.h"
#include "qt/controls/BridgeFactory.h"
#include "qt/controls/ContainerBridges.h"

#include <QGridLayout>
#include <QVBoxLayout>
#include <QWidget>

#include <algorithm>

namespace tv::qt {
namespace {

// Names beginning so belong to controls; everything else in a Designer file only arranges them.
bool isControlName(const QString& name) { return name.startsWith(QLatin1String("ID")); }

void collectTabPages(const CWnd& parent, std::vector<const CWnd*>& out) {
    for (const CWnd* child : parent.children()) {
        if (child->kind() == ui::ControlKind::tab) {
            const auto& tabs = static_cast<const CTabCtrl&>(*child);
            for (int i = 0; i < tabs.GetItemCount(); ++i)
                out.push_back(&tabs.page(i));
        }
        collectTabPages(*child, out);
    }
}

void addAtEnd(QWidget& scope, QWidget& widget) {
    if (!scope.layout()) new QVBoxLayout(&scope);
    if (auto* grid = qobject_cast<QGridLayout*>(scope.layout()))
        grid->addWidget(&widget, grid->rowCount(), 0, 1, std::max(1, grid->columnCount()));
    else
        scope.layout()->addWidget(&widget);
}

} // namespace

void Binder::problem(const Scope& scope, std::wstring_view what) {
    m_problems.push_back(text::format(L"%s: %s", text::fromUtf8(scope.templateName), what));
}

void Binder::bind(CWnd& container, QWidget& scopeWidget, const std::string& templateName) {
    Scope scope{scopeWidget, templateName, {}};
    for (QWidget* widget : scopeWidget.findChildren<QWidget*>()) {
        if (!isControlName(widget->objectName())) continue;
        if (scope.named.contains(widget->objectName()))
            problem(scope, text::format(VORD_ResourceString("IDS_TAVO_QT_TWICE", L"%s이(가) 두 번 있습니다."),
                                        widget->objectName().toStdWString()));
        scope.named.insert(widget->objectName(), widget);
    }
    collectTabPages(container, m_tabPages);
    bindChildren(container, scope);
    for (const QString& name : scope.named.keys())
        problem(scope,
                text::format(VORD_ResourceString("IDS_TAVO_QT_ORPHAN", L"위젯 %s에 맞는 컨트롤이 없습니다."),
                             name.toStdWString()));
}

void Binder::bindChildren(CWnd& container, Scope& scope) {
    for (CWnd* wnd : container.children()) {
        const bool inTabs = std::find(m_tabPages.begin(), m_tabPages.end(), wnd) != m_tabPages.end();
        if (wnd->kind() == ui::ControlKind::page) {
            if (!inTabs) bindPage(static_cast<CPage&>(*wnd), placeFor(*wnd, scope), false);
            continue;
        }
        auto bridge = bridgeFor(*wnd, scope);
        Bridge& tied = *bridge;
        m_bridges.push_back(std::move(bridge));
        if (wnd->kind() == ui::ControlKind::tab) bindTabs(static_cast<CTabCtrl&>(*wnd), tied);
        // A list's children are its editors, which it shows itself.
        if (wnd->kind() != ui::ControlKind::list) bindChildren(*wnd, scope);
    }
}

QWidget* Binder::claim(const CWnd& wnd, Scope& scope) {
    QWidget* found = scope.named.take(QString::fromStdString(wnd.name()));
    if (!found)
        problem(scope, text::format(
                           VORD_ResourceString("IDS_TAVO_QT_MISSING", L"컨트롤 %s(%s)에 맞는 위젯이 없습니다."),
                           text::fromUtf8(wnd.name()), text::fromUtf8(widgetClassFor(wnd))));
    return found;
}

QWidget& Binder::placeFor(const CWnd& page, Scope& scope) {
    QWidget* found = claim(page, scope);
    return found ? *found : create(page, scope);
}

std::unique_ptr<Bridge> Binder::bridgeFor(CWnd& wnd, Scope& scope) {
    if (QWidget* found = claim(wnd, scope)) {
        if (auto bridge = makeBridge(wnd, *found)) return bridge;
        problem(scope,
                text::format(VORD_ResourceString("IDS_TAVO_QT_WRONG_CLASS",
                                                 L"위젯 %s의 클래스가 %s입니다. %s이어야 합니다."),
                             text::fromUtf8(wnd.name()), text::fromUtf8(found->metaObject()->className()),
                             text::fromUtf8(widgetClassFor(wnd))));
        found->setObjectName(QString());
        found->hide();
    }
    return makeBridge(wnd, create(wnd, scope));
}

QWidget& Binder::create(const CWnd& wnd, Scope& scope) {
    QWidget* widget = TemplateLoader::create(widgetClassFor(wnd), &scope.widget);
    widget->setObjectName(QString::fromStdString(wnd.name()));
    addAtEnd(scope.widget, *widget);
    return *widget;
}

void Binder::bindPage(CPage& page, QWidget& place, bool inTabs) {
    std::wstring why;
    if (!place.layout()) new QVBoxLayout(&place);
    place.layout()->setContentsMargins(0, 0, 0, 0); // the page's own layout has margins
    QWidget* content = m_loader.load(page.templateName(), &place, why);
    if (!content) {
        m_problems.push_back(why);
        content = new QWidget(&place);
    }
    place.layout()->addWidget(content);
    m_bridges.push_back(std::make_unique<PageBridge>(page, place, inTabs));
    bind(page, *content, page.templateName());
}

void Binder::bindTabs(CTabCtrl& tabs, Bridge& bridge) {
    auto& shown = static_cast<TabBridge&>(bridge);
    for (int i = 0; i < tabs.GetItemCount(); ++i) {
        auto* place = new QWidget(&shown.widget());
        place->setObjectName(QString::fromStdString(tabs.page(i).name()));
        shown.addPage(*place);
        if (tabs.page(i).kind() == ui::ControlKind::page)
            bindPage(static_cast<CPage&>(tabs.page(i)), *place, true);
    }
}

} // namespace tv::qt
