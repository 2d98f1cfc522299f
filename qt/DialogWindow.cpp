#include "qt/DialogWindow.h"

#include "platform/text/Unicode.h"
#include "platform/toolkit/Button.h"
#include "qt/Icons.h"
#include "qt/Keys.h"
#include "qt/controls/StaticBridges.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWindow>

#include <cstdio>

namespace tv::qt {

DialogWindow::DialogWindow(CDialog& dialog, const TemplateLoader& loader, QWidget* owner)
    : QDialog(dialog.embedded() && dialog.modeless() ? nullptr : owner), m_dialog(dialog), m_embedded(dialog.embedded() && dialog.modeless()) {
    setObjectName(QString::fromStdString(dialog.templateName()));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowModality(dialog.modeless() ? Qt::NonModal : Qt::ApplicationModal);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowIcon(standardIcon(ui::Icon::application));
    setSizeGripEnabled(false);
    build(loader);
    for (const std::wstring& problem : m_problems)
        std::fprintf(stderr, "%s\n", text::toUtf8(problem).c_str());

    installEventFilter(this);
    watch(*this);
    if (m_embedded) showAll();
}

// The bridges go before the widgets, which still say that they are hidden.
DialogWindow::~DialogWindow() { retire(); }

void DialogWindow::retire() {
    m_retired = true;
    m_presented = false;
    for (const auto& bridge : m_bridges)
        bridge->retire();
    removeEventFilter(this);
    for (QWidget* widget : findChildren<QWidget*>())
        widget->removeEventFilter(this);
    hide();
}

// As a part of another window it lacks a dialog's ideas of where it belongs and who has the focus.
void DialogWindow::setVisible(bool visible) {
    if (m_embedded)
        QWidget::setVisible(visible);
    else
        QDialog::setVisible(visible);
}

void DialogWindow::build(const TemplateLoader& loader) {
    std::wstring why;
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);              // the template's own layout has margins
    outer->setSizeConstraint(QLayout::SetNoConstraint); // the window's size is decided here, in one place
    QWidget* content = loader.load(m_dialog.templateName(), this, why);
    if (!content) {
        m_problems.push_back(why);
        content = new QWidget(this);
    }
    content->setObjectName(QString());
    outer->addWidget(content);

    Binder binder(loader);
    binder.bind(m_dialog, *content, m_dialog.templateName());
    m_bridges = binder.takeBridges();
    for (auto& problem : binder.takeProblems())
        m_problems.push_back(std::move(problem));
}

void DialogWindow::watch(QWidget& part) {
    if (&part != this) part.installEventFilter(this);
    for (QWidget* widget : part.findChildren<QWidget*>())
        widget->installEventFilter(this);
}

Bridge* DialogWindow::bridgeOf(const CWnd& wnd) const {
    for (const auto& bridge : m_bridges) {
        if (&bridge->wnd() == &wnd) return bridge.get();
        if (Bridge* inner = bridge->inner(); inner && &inner->wnd() == &wnd) return inner;
    }
    return nullptr;
}

Bridge* DialogWindow::bridgeOfWidget(const QObject* object) const {
    for (; object && object != this; object = object->parent())
        for (const auto& bridge : m_bridges) {
            if (&bridge->widget() == object) return bridge.get();
            if (Bridge* inner = bridge->inner(); inner && &inner->widget() == object) return inner;
        }
    return nullptr;
}

void DialogWindow::linkLabels() {
    for (const auto& bridge : m_bridges)
        if (const CWnd* label = bridge->wnd().label())
            if (auto* named = dynamic_cast<LabelBridge*>(bridgeOf(*label))) named->leadTo(bridge->widget());
}

void DialogWindow::showNamesLabelledBy(const CWnd& label) {
    for (const auto& bridge : m_bridges)
        if (bridge->wnd().label() == &label) bridge->changed(ui::Change::label);
}

void DialogWindow::showAll() {
    setWindowTitle(toQt(m_dialog.GetWindowText()));
    setWindowOpacity(m_dialog.opacity());
    setEnabled(m_dialog.IsWindowEnabled());
    linkLabels();
    for (const auto& bridge : m_bridges) {
        bridge->changed(ui::Change::items);
        bridge->refresh();
    }
}

void DialogWindow::changed(CWnd& wnd, ui::Change change) {
    if (static_cast<CWnd*>(&m_dialog) != &wnd) {
        if (Bridge* bridge = bridgeOf(wnd)) {
            bridge->changed(change);
            if (change == ui::Change::editor && bridge->inner()) watch(bridge->inner()->widget());
        }
        if (change == ui::Change::rect)
            if (Bridge* around = wnd.GetParent() ? bridgeOf(*wnd.GetParent()) : nullptr) around->placeInner();
        if (change == ui::Change::label) linkLabels();
        if (change == ui::Change::text) showNamesLabelledBy(wnd);
        if (change == ui::Change::focus || change == ui::Change::enabled || change == ui::Change::visible)
            showFocus();
        return;
    }
    switch (change) {
    case ui::Change::text:
        setWindowTitle(toQt(m_dialog.GetWindowText()));
        break;
    case ui::Change::enabled:
        setEnabled(m_dialog.IsWindowEnabled());
        break;
    case ui::Change::look:
        setWindowOpacity(m_dialog.opacity());
        break;
    case ui::Change::rect:
        if (!m_presented || m_dialog.GetWindowRect() == m_known) break;
        if (m_dialog.GetWindowRect().Size() != m_known.Size()) applySize();
        place();
        break;
    default:
        break;
    }
}

// --- size and place ------------------------------------------------------------------------------------------

QSize DialogWindow::neededSize(int width) const {
    QSize least(m_dialog.minimumSize().cx, m_dialog.minimumSize().cy);
    if (!m_dialog.sizingFrame()) least = {m_dialog.GetWindowRect().Width(), m_dialog.GetWindowRect().Height()};
    least = least.expandedTo(layout()->totalMinimumSize());
    if (layout()->hasHeightForWidth())
        least.setHeight(
            std::max(least.height(), layout()->totalMinimumHeightForWidth(std::max(width, least.width()))));
    return least;
}

void DialogWindow::applySize() {
    const QScopedValueRollback ours(m_settingGeometry, true);
    layout()->activate();
    const CRect rect = m_known = m_dialog.GetWindowRect();
    const QSize least = neededSize(rect.Width());
    if (m_dialog.sizingFrame()) {
        m_set = QSize(rect.Width(), rect.Height()).expandedTo(least);
        setMinimumSize(least);
        setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        resize(m_set);
    } else {
        m_set = least;
        setFixedSize(m_set);
    }
}

// Where the dialog wants to be, moved back onto the screen when the layout made it larger than it thought.
void DialogWindow::place() {
    const QScopedValueRollback ours(m_settingGeometry, true);
    m_known = m_dialog.GetWindowRect();
    QPoint at(m_known.left, m_known.top);
    if (const QScreen* on = screen()) {
        const QRect area = on->availableGeometry();
        at.setX(std::max(area.left(), std::min(at.x(), area.right() + 1 - m_set.width())));
        at.setY(std::max(area.top(), std::min(at.y(), area.bottom() + 1 - m_set.height())));
    }
    m_put = at;
    move(at);
}

void DialogWindow::present() {
    if (!m_presented) {
        showAll();
        ensurePolished();
        applySize();
        place();
        m_presented = true;
    }
    showFocus();
    show();
    raise();
    activateWindow();
    showFocus();
}

bool DialogWindow::event(QEvent* event) {
    if (m_retired) return QDialog::event(event);
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<QHelpEvent&>(*event);
        const std::wstring hint = m_dialog.toolTipAt({help.pos().x(), help.pos().y()});
        if (!hint.empty()) {
            QToolTip::showText(help.globalPos(), QString::fromStdWString(hint), this);
            return true;
        }
    }
    const bool done = QDialog::event(event);
    // Texts may have grown: the window grows with them, and never shrinks while it is open.
    if (event->type() == QEvent::LayoutRequest && m_presented && !m_settingGeometry) {
        const QScopedValueRollback ours(m_settingGeometry, true);
        const QSize least = neededSize(width());
        if (m_dialog.sizingFrame()) {
            setMinimumSize(least);
            m_set = size().expandedTo(least);
        } else {
            m_set = size().expandedTo(least);
            setFixedSize(m_set);
        }
    }
    return done;
}

void DialogWindow::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    const QPoint at = frameGeometry().topLeft();
    if (m_settingGeometry || !m_presented || !isVisible() || at == m_put) return;
    m_put = at;
    m_known = m_known.OffsetBy({at.x() - m_known.left, at.y() - m_known.top});
    if (!m_dialog.userMove({at.x(), at.y()})) m_known = m_dialog.GetWindowRect();
}

void DialogWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (m_settingGeometry || !m_presented || !isVisible() || event->size() == m_set) return;
    m_set = event->size();
    m_known.right = m_known.left + m_set.width();
    m_known.bottom = m_known.top + m_set.height();
    if (!m_dialog.userResize({m_set.width(), m_set.height()})) applySize();
}

void DialogWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!m_retired) (void)m_dialog.userClose();
}

// --- dragging by the body ------------------------------------------------------------------------------------

namespace {

Qt::Edges edgesOf(HitTest hit) {
    switch (hit) {
    case HitTest::left:
        return Qt::LeftEdge;
    case HitTest::right:
        return Qt::RightEdge;
    case HitTest::top:
        return Qt::TopEdge;
    case HitTest::bottom:
        return Qt::BottomEdge;
    case HitTest::topLeft:
        return Qt::TopEdge | Qt::LeftEdge;
    case HitTest::topRight:
        return Qt::TopEdge | Qt::RightEdge;
    case HitTest::bottomLeft:
        return Qt::BottomEdge | Qt::LeftEdge;
    case HitTest::bottomRight:
        return Qt::BottomEdge | Qt::RightEdge;
    case HitTest::client:
    case HitTest::caption:
        return {};
    }
    return {};
}

} // namespace

// Only what no control wanted arrives here.
void DialogWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !windowHandle() || m_retired || m_embedded)
        return QDialog::mousePressEvent(event);
    const QPoint at = event->position().toPoint();
    const CRect& rect = m_dialog.GetWindowRect();
    const HitTest hit = m_dialog.OnNcHitTest({rect.left + at.x(), rect.top + at.y()});
    if (hit == HitTest::caption) {
        if (!windowHandle()->startSystemMove()) m_dragFrom = at;
    } else if (hit != HitTest::client) {
        windowHandle()->startSystemResize(edgesOf(hit));
    }
}

void DialogWindow::mouseMoveEvent(QMouseEvent* event) {
    if (m_dragFrom) move(event->globalPosition().toPoint() - *m_dragFrom - (geometry().topLeft() - pos()));
}

void DialogWindow::mouseReleaseEvent(QMouseEvent*) { m_dragFrom.reset(); }

// --- keys and focus ------------------------------------------------------------------------------------------

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    event->ignore();
} // not QDialog's ideas of Enter and Escape

bool DialogWindow::keyPressed(QKeyEvent& event) {
    const ui::KeyEvent key = toKeyEvent(event);
    if (key.key == ui::Key::none || m_composing) return false;
    if (m_dialog.dialogKey(key)) return true;
    if (m_retired || !m_dialog.running()) return true;
    Bridge* bridge = bridgeOfWidget(focusWidget());
    return bridge && bridge->key(key);
}

bool DialogWindow::eventFilter(QObject* object, QEvent* event) {
    // An unhandled key travels up the parents: only its first stop counts.
    const bool isTarget = object == focusWidget() || (object == this && !focusWidget());
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        // Mnemonics are the dialog's: Qt shall not look for shortcuts.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!isTarget || !key->modifiers().testFlag(Qt::AltModifier)) return false;
        // Those a part of the main window has no use for are the menus'.
        if (m_embedded && !m_dialog.hasMnemonic(toKeyEvent(*key).ch)) return false;
        event->accept();
        return true;
    }
    case QEvent::KeyPress:
        return isTarget && keyPressed(*static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
        focusArrived(*object, static_cast<QFocusEvent*>(event)->reason());
        return false;
    case QEvent::InputMethod:
        composing(*event);
        return false;
    default:
        return false;
    }
}

void DialogWindow::focusArrived(QObject& object, Qt::FocusReason reason) {
    // Qt also moves the focus by itself, when a widget is disabled or hidden, and gives it back with the
    // window.
    if (m_movingFocus || (reason != Qt::MouseFocusReason && reason != Qt::ShortcutFocusReason)) return;
    Bridge* bridge = bridgeOfWidget(&object);
    if (!bridge || m_dialog.GetFocus() == &bridge->wnd() || !bridge->wnd().focusable()) return;
    if (!bridge->wnd().userFocus()) showFocus();
}

void DialogWindow::showFocus() {
    const CWnd* wnd = m_dialog.GetFocus();
    const Bridge* bridge = wnd ? bridgeOf(*wnd) : nullptr;
    if (!bridge) return;
    const ui::Toolkit* toolkit = ui::Toolkit::current();
    if (m_embedded && (!toolkit || toolkit->active() != &m_dialog)) return; // the focus is another part's
    QWidget* current = m_embedded ? QApplication::focusWidget() : focusWidget();
    if (current == &bridge->widget() || (current && bridge->widget().isAncestorOf(current))) return;
    const QScopedValueRollback ours(m_movingFocus, true);
    bridge->widget().setFocus(Qt::TabFocusReason); // an edit field selects its text
}

void DialogWindow::composing(QEvent& event) {
    const bool now = !static_cast<QInputMethodEvent&>(event).preeditString().isEmpty();
    if (now == m_composing) return;
    m_composing = now;
    m_dialog.OnImeComposing(now);
    setCursor(m_dialog.wantsTextCursor() ? Qt::IBeamCursor : Qt::ArrowCursor);
}

} // namespace tv::qt
