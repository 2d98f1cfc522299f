#include "qt/QtToolkit.h"

#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/Menu.h"
#include "qt/DialogWindow.h"
#include "qt/TaskQueue.h"
#include "qt/TemplateLoader.h"
#include "qt/controls/MenuFace.h"

#include <QAbstractEventDispatcher>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <clocale>
#include <utility>

using tv::qt::DialogWindow;

struct QtToolkit::Impl {
    explicit Impl(Toolkit& toolkit) : menu(toolkit) {}
    tv::qt::TaskQueue tasks;
    tv::qt::TemplateLoader loader;
    QPointer<QWidget> mainWindow, home;
    std::vector<std::unique_ptr<DialogWindow>> windows; // of running dialogs, in the order they came up
    std::vector<QPointer<DialogWindow>> modeless;       // a main window may delete those it holds
    std::vector<QPointer<DialogWindow>> retired;        // to be deleted when none of their events is under way
    tv::qt::MenuFace menu;
    int waits = 0; // how many are within each other
    QMetaObject::Connection focusWatched;
    std::atomic<bool> awake{true}; // the driver may have something to do
    QThread* thread = QThread::currentThread();

    DialogWindow* windowOf(const CDialog* dialog) const {
        for (const auto& window : windows)
            if (&window->dialog() == dialog) return window.get();
        for (const auto& window : modeless)
            if (window && &window->dialog() == dialog) return window;
        return nullptr;
    }
    // The modeless window a widget belongs to, drop-down lists included.
    CDialog* modelessOf(const QWidget* widget) const {
        for (; widget; widget = widget->parentWidget())
            for (const auto& window : modeless)
                if (window == widget) return &window->dialog();
        return nullptr;
    }
    void deleteRetired() {
        for (const auto& window : std::exchange(retired, {}))
            delete window.data();
    }

    // A topmost dialog that got out of the way takes those below along: their modality would block the drawing.
    void showWindows() const {
        const bool away = !windows.empty() && !windows.back()->dialog().shown();
        for (const auto& window : windows) {
            const bool visible = !away && window->dialog().shown();
            if (!visible)
                window->getOutOfTheWay();
            else if (!window->isVisible())
                window->present();
        }
    }
};

QtToolkit::QtToolkit() : m(std::make_unique<Impl>(*this)) {
    // QApplication takes the desktop's number format into the C library, where nobody here wants it.
    std::setlocale(LC_NUMERIC, "C");
    m->focusWatched = QObject::connect(qApp, &QApplication::focusChanged, qApp, [this](QWidget*, QWidget* now) {
        if (now && modalStack().empty()) wentTo(m->modelessOf(now));
    });
}

QtToolkit::~QtToolkit() {
    closeMenu();
    QObject::disconnect(m->focusWatched);
    m->deleteRetired();
    for (const auto& window : std::exchange(m->modeless, {}))
        delete window.data();
}

void QtToolkit::addTemplatePath(const QString& path) { m->loader.addPath(path); }

void QtToolkit::setMainWindow(QWidget* window, QWidget* home) {
    m->mainWindow = window;
    m->home = home;
}

std::chrono::milliseconds QtToolkit::now() const { return m->tasks.now(); }

void QtToolkit::schedule(std::chrono::milliseconds delay, std::shared_ptr<tv::ui::Timer::Task> task) {
    m->tasks.schedule(delay, std::move(task));
}

void QtToolkit::wait(tv::ui::Waiting& waiting) {
    QEventLoop loop;
    const QScopedValueRollback depth(m->waits, m->waits + 1);
    m->awake = true; // a new wait is news to the driver
    while (!waiting.done()) {
        if (m->waits == 1) m->deleteRetired();
        loop.processEvents(QEventLoop::AllEvents);
        if (waiting.done()) break;
        if (m->tasks.due()) continue;
        if (driver() && m->awake.exchange(false)) {
            if (driver()->step(waiting)) m->awake = true;
            continue;
        }
        loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    m->awake = true; // whoever waits outside is asked again
}

void QtToolkit::wake() {
    m->awake = true;
    if (auto* dispatcher = QAbstractEventDispatcher::instance(m->thread)) dispatcher->wakeUp();
}

CRect QtToolkit::workArea() const {
    const QScreen* screen = m->mainWindow ? m->mainWindow->screen() : QGuiApplication::primaryScreen();
    if (!screen) return Toolkit::workArea();
    const QRect area = screen->availableGeometry();
    return {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}

void QtToolkit::show(CDialog& dialog) {
    QWidget* owner = m->mainWindow;
    if (const CWnd* wnd = dialog.GetOwner())
        if (DialogWindow* window = m->windowOf(wnd->dialog())) owner = window;
    if (dialog.modeless()) {
        m->modeless.emplace_back(new DialogWindow(dialog, m->loader, owner));
        if (!dialog.embedded() && dialog.shown()) m->modeless.back()->present();
        return;
    }
    if (owner == m->mainWindow && !m->windows.empty()) owner = m->windows.back().get();
    m->windows.push_back(std::make_unique<DialogWindow>(dialog, m->loader, owner));
    m->showWindows();
}

void QtToolkit::showActive(CDialog* dialog) {
    if (DialogWindow* window = dialog ? m->windowOf(dialog) : nullptr) {
        if (!window->isActiveWindow()) window->activateWindow();
        window->showFocus();
    } else if (m->mainWindow && !dialog) {
        if (!m->mainWindow->isActiveWindow()) m->mainWindow->activateWindow();
        if (m->home) m->home->setFocus(Qt::OtherFocusReason);
    }
}

void QtToolkit::hide(CDialog& dialog) {
    if (dialog.modeless()) {
        DialogWindow* window = m->windowOf(&dialog);
        if (!window) return;
        std::erase(m->modeless, window);
        m->retired.emplace_back(window);
        window->retire();
        return;
    }
    const auto at = std::find_if(m->windows.begin(), m->windows.end(),
                                 [&](const auto& window) { return &window->dialog() == &dialog; });
    if (at == m->windows.end()) return;
    // A child window must not be deleted before the one that stands above it is gone: dialogs end from the top
    // down.
    const std::unique_ptr<DialogWindow> gone = std::move(*at);
    m->windows.erase(at);
    gone->getOutOfTheWay();
    m->showWindows();
}

void QtToolkit::showMenu(const tv::ui::Menu& menu) {
    const CWnd& owner = menu.owner();
    DialogWindow* window = m->windowOf(owner.dialog());
    if (!window) return;
    const tv::qt::Bridge* bridge = window->bridgeOf(owner);
    if (!menu.at()) return m->menu.show(menu, *window, bridge ? bridge->menuPlace() : QCursor::pos());
    QWidget* over = bridge ? &bridge->widget() : window;
    if (auto* area = qobject_cast<QAbstractScrollArea*>(over)) over = area->viewport();
    m->menu.show(menu, *window, over->mapToGlobal(QPoint(menu.at()->x, menu.at()->y)));
}

void QtToolkit::hideMenu() { m->menu.hide(); }

void QtToolkit::menuMoved(const tv::ui::Menu& menu) { m->menu.moved(menu); }

void QtToolkit::changed(CWnd& wnd, tv::ui::Change change) {
    DialogWindow* window = m->windowOf(wnd.dialog());
    if (!window) return;
    window->changed(wnd, change);
    if (change == tv::ui::Change::visible && static_cast<CWnd*>(wnd.dialog()) == &wnd &&
        wnd.dialog()->modeless())
        return wnd.dialog()->embedded() || !wnd.shown() ? window->setVisible(wnd.shown()) : window->present();
    if (change == tv::ui::Change::visible && wnd.kind() == tv::ui::ControlKind::dialog) m->showWindows();
}

int QtToolkit::textWidth(const CWnd& wnd, std::wstring_view text) const {
    const QWidget* widget = widgetOf(wnd);
    const QFontMetrics metrics(widget ? widget->font() : QApplication::font());
    return metrics.horizontalAdvance(tv::qt::toQt(text));
}

void QtToolkit::setClipboardText(const std::wstring& text) {
    QGuiApplication::clipboard()->setText(tv::qt::toQt(text));
}

std::wstring QtToolkit::clipboardText() const { return QGuiApplication::clipboard()->text().toStdWString(); }

namespace {

// Open menus and drop-down lists, what they opened last.
std::vector<QWidget*> openPopups() {
    std::vector<QWidget*> popups;
    QWidget* const last = QApplication::activePopupWidget();
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->windowType() == Qt::Popup && widget != last)
            popups.push_back(widget);
    if (last) popups.push_back(last);
    return popups;
}

// As it is on screen, with what is open above it.
QPixmap grabWithPopups(QWidget& shown) {
    const QPixmap window = shown.grab();
    const auto popups = openPopups();
    if (popups.empty()) return window;
    const auto placeOf = [](const QWidget& widget) {
        return QRect(widget.mapToGlobal(QPoint()), widget.size());
    };
    QRect all = placeOf(shown);
    for (const QWidget* popup : popups)
        all |= placeOf(*popup);
    QPixmap picture(all.size() * window.devicePixelRatio());
    picture.setDevicePixelRatio(window.devicePixelRatio());
    picture.fill(shown.palette().color(QPalette::Mid));
    QPainter painter(&picture);
    painter.drawPixmap(placeOf(shown).topLeft() - all.topLeft(), window);
    for (QWidget* popup : popups)
        painter.drawPixmap(placeOf(*popup).topLeft() - all.topLeft(), popup->grab());
    return picture;
}

} // namespace

bool QtToolkit::screenshot(const std::filesystem::path& file) const {
    QWidget* shown = m->mainWindow;
    if (const CDialog* top = topmost())
        if (DialogWindow* window = m->windowOf(top)) shown = window;
    // What was said a moment ago takes its place first.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return shown && grabWithPopups(*shown).save(QString::fromStdWString(file.wstring()));
}

QWidget* QtToolkit::windowOf(const CDialog& dialog) const { return m->windowOf(&dialog); }

QWidget* QtToolkit::widgetOf(const CWnd& control) const {
    DialogWindow* window = m->windowOf(control.dialog());
    const tv::qt::Bridge* bridge = window ? window->bridgeOf(control) : nullptr;
    return bridge ? &bridge->widget() : nullptr;
}

std::vector<std::wstring> QtToolkit::bindingProblems(const CDialog& dialog) const {
    const DialogWindow* window = m->windowOf(&dialog);
    return window ? window->problems() : std::vector<std::wstring>();
}
