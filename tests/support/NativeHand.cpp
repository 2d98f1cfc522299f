#include "tests/support/NativeHand.h"

#include "platform/toolkit/Button.h"
#include "platform/toolkit/Choice.h"
#include "platform/toolkit/ComboBox.h"
#include "platform/toolkit/Edit.h"
#include "platform/toolkit/ListBox.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/Menu.h"
#include "platform/toolkit/SliderCtrl.h"
#include "platform/toolkit/SwatchGrid.h"
#include "platform/toolkit/TabCtrl.h"
#include "platform/toolkit/TreeCtrl.h"
#include "qt/controls/KxDrawArea.h"
#include "qt/controls/KxSwatchGrid.h"
#include "qt/controls/RowDrag.h"

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QWindow>

using tv::ui::Key;
using tv::ui::KeyEvent;
using tv::ui::UserAction;
using tv::ui::UserResult;

namespace native {

void rightClick(QWidget& widget, int x, int y) {
    QWidget* top = widget.window();
    if (top->windowHandle())
        QTest::mouseClick(top->windowHandle(), Qt::RightButton, Qt::NoModifier,
                          widget.mapTo(top, QPoint(x, y)));
}

void click(QWidget& widget, int x, int y, bool twice, bool ctrl) {
    QWidget* top = widget.window();
    const QPoint at = widget.mapTo(top, QPoint(x, y));
    const Qt::KeyboardModifiers with = ctrl ? Qt::ControlModifier : Qt::NoModifier;
    if (!top->windowHandle()) return;
    if (twice)
        QTest::mouseDClick(top->windowHandle(), Qt::LeftButton, with, at);
    else
        QTest::mouseClick(top->windowHandle(), Qt::LeftButton, with, at);
}

namespace {

int qtKey(const KeyEvent& key) {
    switch (key.key) {
    case Key::enter:
        return Qt::Key_Return;
    case Key::escape:
        return Qt::Key_Escape;
    case Key::tab:
        return key.shift ? Qt::Key_Backtab : Qt::Key_Tab;
    case Key::space:
        return Qt::Key_Space;
    case Key::backspace:
        return Qt::Key_Backspace;
    case Key::del:
        return Qt::Key_Delete;
    case Key::left:
        return Qt::Key_Left;
    case Key::right:
        return Qt::Key_Right;
    case Key::up:
        return Qt::Key_Up;
    case Key::down:
        return Qt::Key_Down;
    case Key::home:
        return Qt::Key_Home;
    case Key::end:
        return Qt::Key_End;
    case Key::pageUp:
        return Qt::Key_PageUp;
    case Key::pageDown:
        return Qt::Key_PageDown;
    case Key::f1:
        return Qt::Key_F1;
    case Key::f2:
        return Qt::Key_F2;
    case Key::f4:
        return Qt::Key_F4;
    case Key::f10:
        return Qt::Key_F10;
    case Key::menu:
        return Qt::Key_Menu;
    case Key::character:
        return QChar(static_cast<char16_t>(key.ch)).toUpper().unicode();
    case Key::none:
        break;
    }
    return 0;
}

void strike(QWidget& window, int key, Qt::KeyboardModifiers with, const QString& text) {
    // To whom the window system would give it, popups first, whatever the first event does to the popup.
    QWidget* top = QApplication::activePopupWidget() ? QApplication::activePopupWidget() : &window;
    const QPointer<QWidget> target = top->focusWidget() ? top->focusWidget() : top;
    for (const auto kind : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(kind, key, with, text);
        if (kind == QEvent::ShortcutOverride) event.ignore();
        if (target) QApplication::sendEvent(target, &event);
    }
}

} // namespace

void key(QWidget& window, const KeyEvent& key) {
    Qt::KeyboardModifiers with;
    with.setFlag(Qt::ControlModifier, key.ctrl);
    with.setFlag(Qt::AltModifier, key.alt);
    with.setFlag(Qt::ShiftModifier, key.shift);
    QString text;
    if (key.key == Key::space) text = QStringLiteral(" ");
    if (key.key == Key::character && !key.ctrl && !key.alt) text = QString::fromWCharArray(&key.ch, 1);
    strike(window, qtKey(key), with, text);
}

void type(QWidget& window, const QString& text) {
    strike(window, Qt::Key_A, Qt::ControlModifier, {});
    if (text.isEmpty()) strike(window, Qt::Key_Delete, {}, {});
    for (const QChar ch : text)
        strike(window, ch.toUpper().unicode(), {}, QString(ch));
}

} // namespace native

namespace {

void clickItem(QAbstractItemView& view, const QModelIndex& index, bool twice = false, bool ctrl = false) {
    view.scrollTo(index);
    const QPoint at = view.visualRect(index).center();
    native::click(*view.viewport(), at.x(), at.y(), twice, ctrl);
}

// A place of the view where no item is.
QPoint emptyPlace(QAbstractItemView& view) {
    const QPoint at(view.viewport()->width() / 2, view.viewport()->height() - 3);
    return view.indexAt(at).isValid() ? QPoint(-1, -1) : at;
}

bool rightClickItem(QAbstractItemView& view, const QModelIndex& index) {
    if (index.isValid()) view.scrollTo(index);
    const QPoint at = index.isValid() ? view.visualRect(index).center() : emptyPlace(view);
    if (at.x() < 0) return false;
    native::rightClick(*view.viewport(), at.x(), at.y());
    return true;
}

// Presses at a place of a view, moves to another view's, and lets go there. Offscreen no window system drags,
// so what it would tell the other view is told it here.
void dragTo(QAbstractItemView& source, QPoint from, QAbstractItemView& target, QPoint to, bool copy) {
    QWindow* window = source.window()->windowHandle();
    if (!window) return;
    from = source.viewport()->mapTo(source.window(), from);
    tv::qt::drag::setWay([&, to](const QMimeData& data) {
        const Qt::KeyboardModifiers with = copy ? Qt::ControlModifier : Qt::NoModifier;
        const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
        QDragEnterEvent enter(to, actions, &data, Qt::LeftButton, with);
        QApplication::sendEvent(target.viewport(), &enter);
        if (!enter.isAccepted()) return;
        QDragMoveEvent move(to, actions, &data, Qt::LeftButton, with);
        QApplication::sendEvent(target.viewport(), &move);
        QDropEvent drop(to, actions, &data, Qt::LeftButton, with);
        QDragLeaveEvent leave;
        QApplication::sendEvent(target.viewport(), move.isAccepted() ? static_cast<QEvent*>(&drop) : &leave);
    });
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, from);
    for (const int by : {1, 2}) // the first one only tells a tree that the button is down
        QTest::mouseMove(window, from + QPoint(by * (QApplication::startDragDistance() + 5), 0));
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, from);
    tv::qt::drag::setWay({});
}

void press(QWidget& window, Key which, int times = 1) {
    for (int i = 0; i < times; ++i)
        native::key(window, {which});
}

// The second click of a person opens the editor too, but after a while; F2 does nothing meanwhile.
void editText(QAbstractItemView& view, const std::wstring& text) {
    QLineEdit* editor = nullptr;
    const auto isOpen = [&] {
        for (QLineEdit* line : view.viewport()->findChildren<QLineEdit*>())
            if (line->isVisible()) editor = line;
        return editor != nullptr;
    };
    press(*view.window(), Key::f2);
    if (!QTest::qWaitFor(isOpen, 2000)) return;
    native::type(*view.window(), QString::fromStdWString(text));
    press(*view.window(), Key::enter);
    QApplication::processEvents(); // some editors close when the key has done its work
}

QTreeWidgetItem* itemOf(QTreeWidget& tree, int id) {
    for (QTreeWidgetItemIterator it(&tree); *it; ++it)
        if ((*it)->data(0, Qt::UserRole).toInt() == id) return *it;
    return nullptr;
}

bool chooseInCombo(CComboBox& combo, QComboBox& box, const UserAction& action) {
    const int index = tv::ui::chosenItem(combo.items(), action);
    if (index < 0) return false;
    if (!combo.dropped()) native::click(box, box.width() - 8, box.height() / 2);
    if (!combo.dropped()) return true;
    QWidget* list = QApplication::activePopupWidget();
    auto* view = list ? list->findChild<QAbstractItemView*>() : nullptr;
    if (!view) return false;
    clickItem(*view, view->model()->index(index, 0));
    return true;
}

bool actOnTree(CTreeCtrl& control, QTreeWidget& tree, const UserAction& action) {
    if (action.kind == UserAction::Kind::treeMenu)
        return rightClickItem(tree, tree.indexFromItem(itemOf(tree, control.find(action.path))));
    QTreeWidgetItem* item = itemOf(tree, control.find(action.path));
    if (!item) return false;
    clickItem(tree, tree.indexFromItem(item));
    switch (action.kind) {
    case UserAction::Kind::treeSelect:
        return true;
    case UserAction::Kind::treeDoubleClick:
        clickItem(tree, tree.indexFromItem(item), true);
        return true;
    case UserAction::Kind::treeExpand:
        press(*tree.window(), action.checked ? Key::right : Key::left);
        return true;
    case UserAction::Kind::treeRename:
        if (!control.item(control.find(action.path))->renamable) return false;
        editText(tree, action.text);
        return true;
    default:
        return false;
    }
}

bool actOnTable(CListCtrl& control, QTableView& table, const UserAction& action) {
    const auto at = [&](int row, int column) { return table.model()->index(row, column); };
    switch (action.kind) {
    case UserAction::Kind::header:
        native::click(*table.horizontalHeader()->viewport(),
                      table.horizontalHeader()->sectionViewportPosition(action.column) + 10, 6);
        return true;
    case UserAction::Kind::selectRows:
        for (const int row : action.rows.rows())
            clickItem(table, at(row, 0), false, row != action.rows.first());
        return true;
    case UserAction::Kind::cell:
        if (action.cell == UserAction::Cell::menu) return rightClickItem(table, at(action.row, action.column));
        if (!at(action.row, action.column).isValid() || table.isColumnHidden(action.column) ||
            action.cell == UserAction::Cell::cancel || action.cell == UserAction::Cell::check)
            return false;
        if (action.cell == UserAction::Cell::doubleClick) {
            clickItem(table, at(action.row, action.column), true);
            return true;
        }
        clickItem(table, at(action.row, action.column));
        if (action.cell == UserAction::Cell::open) {
            if (!control.hasEditor(action.row, action.column)) return false;
            press(*table.window(), Key::f2);
            return true;
        }
        if (action.cell != UserAction::Cell::edit) return true;
        if (!control.cell(action.row, action.column).editable) return false;
        editText(table, action.text);
        return true;
    default:
        return false;
    }
}

} // namespace

// Clicks through the open menu.
bool NativeHand::chooseFromMenu(const UserAction& action) {
    const tv::ui::Menu* open = m_toolkit.menu();
    auto* shown = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    std::size_t missing = 0;
    const auto place =
        open ? open->find(action.path.empty() ? std::vector{action.text} : action.path, missing) : std::nullopt;
    if (!place || !shown) return false;
    bool available = true;
    tv::ui::Menu::Place outer;
    for (const int index : *place) {
        outer.push_back(index);
        const tv::ui::MenuItem* item = open->item(outer);
        available = available && item->available() && (!item->items.empty() || outer == *place);
        QAction* entry = shown->actions().value(index);
        if (!entry) return false;
        const bool chosen = available && item->items.empty();
        const QPoint at = shown->actionGeometry(entry).center();
        QMenu* inner = entry->menu();
        native::click(*shown, at.x(), at.y());
        if (chosen || !available) return chosen;
        shown = inner;
    }
    return false; // an entry that only opens another menu
}

// From what is selected in a list or a tree onto an item of a tree.
bool NativeHand::dragAndDrop(CWnd& wnd, QWidget& widget, const UserAction& action) {
    const auto* tree = dynamic_cast<CTreeCtrl*>(wnd.dialog()->GetDlgItem(
        action.text.empty() ? "" : QString::fromStdWString(action.text).toStdString()));
    auto* source = qobject_cast<QAbstractItemView*>(&widget);
    auto* target = tree ? qobject_cast<QTreeWidget*>(m_toolkit.widgetOf(*tree)) : nullptr;
    if (!source || !target) return false;
    const auto* list = dynamic_cast<CListCtrl*>(&wnd);
    const auto* from = dynamic_cast<CTreeCtrl*>(&wnd);
    const QModelIndex dragged =
        list ? source->model()->index(list->GetCurSel(), 0)
             : target->indexFromItem(itemOf(*qobject_cast<QTreeWidget*>(source), from->GetSelectedItem()));
    QTreeWidgetItem* item = itemOf(*target, tree->find(action.path));
    if (!dragged.isValid() || (!action.path.empty() && !item)) return false;
    source->scrollTo(dragged);
    const QPoint to = item ? target->visualItemRect(item).center() : emptyPlace(*target);
    if (to.x() < 0) return false;
    const bool taken = tree->takesDrop(tree->find(action.path), wnd);
    const bool may = list ? list->onBeginDrag && list->onBeginDrag()
                          : from->onBeginDrag && from->onBeginDrag(from->GetSelectedItem());
    dragTo(*source, source->visualRect(dragged).center(), *target, to, action.checked != 0);
    return taken && may;
}

bool NativeHand::send(CWnd& wnd, QWidget& widget, const UserAction& action) {
    using enum UserAction::Kind;
    if (action.kind == menu) return chooseFromMenu(action);
    if (action.kind == drag) return dragAndDrop(wnd, widget, action);
    const int middle = widget.height() / 2;
    switch (wnd.kind()) {
    case tv::ui::ControlKind::dialog:
        if (action.kind == key)
            native::key(widget, action.keyEvent);
        else if (action.kind == closeBox)
            widget.windowHandle()->close();
        else
            return false;
        return true;
    case tv::ui::ControlKind::button:
    case tv::ui::ControlKind::commandButton:
        if (action.kind != click) return false;
        native::click(widget, widget.width() / 2, middle);
        return true;
    case tv::ui::ControlKind::checkBox: {
        auto& box = static_cast<CCheckBox&>(wnd);
        if (action.kind != click && action.kind != check) return false;
        do
            native::click(widget, 8, middle);
        while (action.kind == check && box.GetCheck() != action.checked && box.triState());
        return true;
    }
    case tv::ui::ControlKind::radioButton:
        if (action.kind != click && !(action.kind == check && action.checked == 1)) return false;
        native::click(widget, 8, middle);
        return true;
    case tv::ui::ControlKind::edit:
        if (action.kind != UserAction::Kind::type && action.kind != click) return false;
        native::click(widget, widget.width() / 2, middle);
        if (action.kind == UserAction::Kind::type)
            native::type(*widget.window(), QString::fromStdWString(action.text));
        return action.kind == click || !static_cast<CEdit&>(wnd).readOnly();
    case tv::ui::ControlKind::comboBox:
        if (action.kind == click) {
            native::click(widget, widget.width() - 8, middle);
            return true;
        }
        if (action.kind == choose)
            return chooseInCombo(static_cast<CComboBox&>(wnd), static_cast<QComboBox&>(widget), action);
        if (action.kind != UserAction::Kind::type || !static_cast<CComboBox&>(wnd).editable()) return false;
        native::click(widget, 10, middle);
        native::type(*widget.window(), QString::fromStdWString(action.text));
        return true;
    case tv::ui::ControlKind::listBox: {
        auto& list = static_cast<QListWidget&>(widget);
        const int index = tv::ui::chosenItem(static_cast<CListBox&>(wnd).items(), action);
        if (action.kind != choose || index < 0) return false;
        clickItem(list, list.model()->index(index, 0));
        return true;
    }
    case tv::ui::ControlKind::list:
        return actOnTable(static_cast<CListCtrl&>(wnd), static_cast<QTableView&>(widget), action);
    case tv::ui::ControlKind::tree:
        return actOnTree(static_cast<CTreeCtrl&>(wnd), static_cast<QTreeWidget&>(widget), action);
    case tv::ui::ControlKind::tab: {
        QTabBar* bar = static_cast<QTabWidget&>(widget).tabBar();
        if (action.kind != choose || action.index < 0 || action.index >= bar->count()) return false;
        const QPoint at = bar->tabRect(action.index).center();
        native::click(*bar, at.x(), at.y());
        return true;
    }
    case tv::ui::ControlKind::slider: {
        auto& slider = static_cast<CSliderCtrl&>(wnd);
        if (action.kind != choose || action.index < slider.minimum() || action.index > slider.maximum())
            return false;
        widget.setFocus(Qt::MouseFocusReason);
        const int steps = action.index - slider.GetPos();
        press(*widget.window(), steps > 0 ? Key::right : Key::left, std::abs(steps));
        return true;
    }
    case tv::ui::ControlKind::swatchGrid: {
        auto& grid = static_cast<tv::qt::KxSwatchGrid&>(widget);
        if (action.kind != choose || action.index < 0) return false;
        const QPoint at = grid.cellRect(action.index).center();
        native::click(grid, at.x(), at.y());
        return true;
    }
    case tv::ui::ControlKind::drawArea: {
        if (action.kind != point) return false;
        const QPointF at = static_cast<tv::qt::KxDrawArea&>(widget).toPixels().map(QPointF(action.x, action.y));
        native::click(widget, qRound(at.x()), qRound(at.y()));
        return true;
    }
    default:
        return false;
    }
}

UserResult NativeHand::act(CWnd& wnd, const UserAction& action) {
    QApplication::sendPostedEvents(); // nobody clicks before the layout has settled
    CDialog* dialog = wnd.dialog();
    QWidget* widget =
        static_cast<CWnd*>(dialog) == &wnd ? m_toolkit.windowOf(*dialog) : m_toolkit.widgetOf(wnd);
    const bool reachable = widget && widget->isEnabled() && m_toolkit.reachable(*dialog) && dialog->running();
    // Where a hidden widget would be, others are.
    const bool sent = widget && widget->isVisible() && send(wnd, *widget, action);
    return reachable && sent ? UserResult::done() : wnd.perform(action);
}
