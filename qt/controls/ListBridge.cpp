#include "qt/controls/ListBridge.h"

#include "qt/TemplateLoader.h"
#include "qt/controls/BridgeFactory.h"
#include "qt/controls/PictureIcon.h"
#include "qt/controls/RowDrag.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>

namespace tv::qt {

namespace {
constexpr std::size_t mostKnownRanges = 200; // of selected rows, to the table
constexpr int widestDragged = 300;           // pixels of a row, beside the pointer
} // namespace

ListBridge::ListBridge(CListCtrl& list, ListView& widget)
    : Bridge(list, widget), m_list(list), m_view(widget), m_rows(list), m_painter(list, m_rows) {
    m_view.setModel(&m_rows);
    m_view.setItemDelegate(&m_painter);
    m_view.setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view.setSelectionMode(list.multiSelect() ? QAbstractItemView::ExtendedSelection
                                               : QAbstractItemView::SingleSelection);
    m_view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view.setAutoScroll(false);
    m_view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_view.setTabKeyNavigation(false);
    m_view.setIconSize(largestPicture);
    m_view.setShowGrid(false);
    m_view.setWordWrap(false);
    m_view.setAttribute(Qt::WA_InputMethodEnabled);
    m_view.verticalHeader()->hide();
    m_view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view.verticalHeader()->setDefaultSectionSize(std::max(20, m_view.fontMetrics().height() + 6));
    QHeaderView& header = *m_view.horizontalHeader();
    header.setSectionsClickable(true);
    header.setSectionsMovable(true);
    header.setStretchLastSection(false); // the control says how wide they are
    header.setHighlightSections(false);
    header.setMinimumSectionSize(0);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    m_view.serve(this);
    m_view.installEventFilter(this);

    connect(&header, &QHeaderView::sectionClicked, this,
            [this](int column) { user([&] { return m_list.userHeader(column); }); });
    connect(&header, &QHeaderView::sectionMoved, this,
            [this](int column, int, int place) { user([&] { return m_list.userMoveColumn(column, place); }); });
    connect(&header, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (width != m_list.columnWidth(column)) user([&] { return m_list.userResizeColumn(column, width); });
    });
    connect(&header, &QHeaderView::sectionHandleDoubleClicked, this,
            [this](int column) { user([&] { return m_list.userFitColumn(column); }); });
    connect(&header, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        const QHeaderView& titles = *m_view.horizontalHeader();
        const QScopedValueRollback place(m_menuAt, std::optional(titles.viewport()->mapToGlobal(at)));
        user([&] { return m_list.userHeaderMenu(titles.logicalIndexAt(at)); });
    });
    const auto scrolled = [this] {
        if (showing() || m_placing) return;
        if (!m_list.userScroll(m_view.verticalScrollBar()->value(), m_view.horizontalScrollBar()->value()))
            showScroll();
    };
    connect(m_view.verticalScrollBar(), &QScrollBar::valueChanged, this, scrolled);
    connect(m_view.horizontalScrollBar(), &QScrollBar::valueChanged, this, scrolled);
    m_openSoon.setSingleShot(true);
    m_openSoon.callOnTimeout(this, [this] {
        if (m_list.GetCurSel() == m_pressedRow && !m_list.editor())
            user([&] { return m_list.userOpenEditor(m_pressedRow, m_pressedColumn); });
    });
}

ListBridge::~ListBridge() { m_view.serve(nullptr); }

// --- what a person does --------------------------------------------------------------------------------------

bool ListBridge::key(const ui::KeyEvent& key) {
    m_openSoon.stop();
    bool used = false;
    user([&] {
        used = m_list.controlKey(key);
        return used;
    });
    return used;
}

void ListBridge::typed(const QString& text) {
    for (const wchar_t ch : text.toStdWString()) {
        ui::KeyEvent event;
        event.key = ch == L' ' ? ui::Key::space : ui::Key::character;
        event.ch = ch;
        (void)key(event);
    }
}

bool ListBridge::onCheckBox(const QModelIndex& index, QPoint at) const {
    return m_painter.checkBox(m_view, m_view.visualRect(index), index).contains(at);
}

bool ListBridge::toggleAt(const QModelIndex& index, QPoint at) {
    if (!onCheckBox(index, at)) return false;
    const bool checked = m_list.cell(index.row(), index.column()).checked == 0;
    user([&] { return m_list.userCheck(index.row(), index.column(), checked); });
    return true;
}

void ListBridge::press(const QModelIndex& index, QPoint at, Qt::KeyboardModifiers with) {
    m_openSoon.stop();
    m_pressedRow = -1;
    m_dragged = m_mayDrag = false;
    if (!index.isValid()) {
        if (m_list.multiSelect()) user([&] { return m_list.userSelect({}); });
        return;
    }
    if (toggleAt(index, at)) return;
    const bool ctrl = with.testFlag(Qt::ControlModifier), shift = with.testFlag(Qt::ShiftModifier);
    m_again = !ctrl && !shift && m_list.selection() == ui::RowSet{index.row()} &&
              m_list.focusColumn() == index.column();
    if (!ctrl && !shift) {
        m_pressedRow = index.row();
        m_pressedColumn = index.column();
    }
    m_pressedAt = at;
    m_mayDrag = !ctrl && !shift && m_list.onBeginDrag && m_list.selection().contains(index.row());
    // The rows that may be dragged stay selected until the button tells what is meant.
    if (m_mayDrag)
        user([&] { return m_list.userFocus(); });
    else
        user([&] { return m_list.userPress(index.row(), index.column(), ctrl, shift); });
}

void ListBridge::dragOut() {
    m_mayDrag = m_again = false;
    m_dragged = true; // no click any more
    bool may = false;
    user([&] {
        may = bool(m_list.userBeginDrag());
        return may;
    });
    const int row = m_pressedRow;
    m_pressedRow = -1;
    if (!may) return;
    QRect rect = m_view.visualRect(m_rows.index(row, m_pressedColumn));
    rect = rect.united(m_view.visualRect(m_rows.index(row, m_list.layout().neighbour(-1, 0))));
    rect &= m_view.viewport()->rect();
    rect.setWidth(std::min(rect.width(), widestDragged));
    drag::run(*this, m_view, m_view.viewport()->grab(rect), {8, rect.height() / 2});
}

void ListBridge::drag(const QModelIndex& index, QPoint at) {
    if (m_mayDrag) {
        if ((at - m_pressedAt).manhattanLength() >= QApplication::startDragDistance()) dragOut();
        return;
    }
    if (m_pressedRow < 0 || index.row() == m_list.focusRow()) return;
    m_again = false;
    m_dragged = true; // no click any more
    user([&] { return m_list.userPress(index.row(), m_pressedColumn, false, m_list.multiSelect()); });
    m_list.EnsureVisible(index.row());
}

void ListBridge::release(const QModelIndex& index) {
    m_mayDrag = false;
    const bool click =
        m_pressedRow >= 0 && !m_dragged && index.row() == m_pressedRow && index.column() == m_pressedColumn;
    if (!click) {
        m_pressedRow = -1;
        return;
    }
    user([&] { return m_list.userClick(index.row(), index.column()); });
    if (m_again && !m_list.editor() && m_list.hasEditor(index.row(), index.column()))
        m_openSoon.start(QApplication::doubleClickInterval());
    else
        m_pressedRow = -1;
}

void ListBridge::doubleClick(const QModelIndex& index, QPoint at) {
    m_openSoon.stop();
    m_pressedRow = -1;
    if (index.isValid() && !toggleAt(index, at))
        user([&] { return m_list.userDoubleClick(index.row(), index.column()); });
}

QPoint ListBridge::menuPlace() const {
    if (m_menuAt) return *m_menuAt;
    const QModelIndex at = m_rows.index(m_list.focusRow(), std::max(0, m_list.focusColumn()));
    const QRect rect = at.isValid() ? m_view.visualRect(at) & m_view.viewport()->rect() : QRect();
    return m_view.viewport()->mapToGlobal(rect.isEmpty() ? QPoint(4, 4) : rect.bottomLeft());
}

void ListBridge::contextMenu(const QModelIndex& index, QPoint globalAt) {
    m_openSoon.stop();
    m_pressedRow = -1;
    const QScopedValueRollback at(m_menuAt, std::optional(globalAt));
    user([&] { return m_list.userContextMenu(index.row(), index.column()); });
}

QString ListBridge::toolTipFor(const QModelIndex& index) {
    constexpr qsizetype most = 1000;
    if (!index.isValid()) return {};
    const ui::ListCell& cell = m_rows.cell(index);
    QString text = toQt(cell.hint);
    if (text.isEmpty() && (cell.pictureOnly || m_painter.isCutOff(m_view, m_view.visualRect(index), index)))
        text = toQt(cell.text);
    if (text.isEmpty()) return {};
    if (text.size() > most) text = text.left(most) + QChar(0x2026);
    return QLatin1String("<span>%1</span>").arg(text.toHtmlEscaped());
}

// --- showing it ----------------------------------------------------------------------------------------------

void ListBridge::geometryChanged() {
    if (m_placing || !m_view.isVisible()) return;
    const QScopedValueRollback placing(m_placing, true);
    const CSize room{m_view.viewport()->width(), m_view.viewport()->height()};
    m_list.faceGeometry(room, m_view.verticalHeader()->defaultSectionSize());
    showColumns();
    showScroll();
    placeInner();
}

void ListBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::items:
        showRows();
        showScroll();
        showSelection();
        break;
    case ui::Change::selection:
        showSelection();
        break;
    case ui::Change::columns:
        showColumns();
        m_view.viewport()->update();
        break;
    case ui::Change::scroll:
        showScroll();
        if (m_list.selection().ranges().size() > mostKnownRanges) showSelection();
        break;
    case ui::Change::editor:
        showEditor();
        break;
    case ui::Change::look:
        m_view.horizontalHeader()->setSortIndicatorShown(m_list.sortColumn() >= 0);
        m_view.horizontalHeader()->setSortIndicator(
            m_list.sortColumn(), m_list.sortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
        showSelection();
        break;
    default:
        break;
    }
}

void ListBridge::showRows() {
    std::vector<std::wstring> titles;
    for (const ui::ListColumn& column : m_list.columns())
        titles.push_back(column.title);
    const auto [first, last] = m_list.changedRows();
    if (titles == m_titles) {
        m_rows.rowsChanged(first, last);
    } else {
        m_rows.reset();
        m_titles = std::move(titles);
        for (int column = 0; column < m_rows.columnCount(); ++column)
            m_list.faceTitleWidth(column, m_view.horizontalHeader()->sectionSizeHint(column));
    }
    showColumns();
}

void ListBridge::showColumns() {
    QHeaderView& header = *m_view.horizontalHeader();
    const QSignalBlocker quiet(header);
    const ui::ListColumns& columns = m_list.layout();
    if (columns.count() != header.count()) return; // the rows are yet to be shown
    bool moved = false;
    for (int place = 0; place < columns.count(); ++place) {
        const int column = columns.order()[static_cast<std::size_t>(place)];
        if (header.visualIndex(column) != place) {
            header.moveSection(header.visualIndex(column), place);
            moved = true;
        }
        const bool visible = columns.at(column).visible;
        if (m_view.isColumnHidden(column) == visible) {
            m_view.setColumnHidden(column, !visible);
            moved = true;
        }
        if (visible && header.sectionSize(column) != m_list.columnWidth(column)) {
            header.resizeSection(column, m_list.columnWidth(column));
            moved = true;
        }
    }
    if (!moved) return;
    const QScopedValueRollback placing(m_placing, true);
    m_view.updateGeometries(); // the header told nobody
    m_view.viewport()->update();
}

void ListBridge::showScroll() {
    const QScopedValueRollback placing(m_placing, true);
    if (m_view.verticalScrollBar()->maximum() < m_list.topRow() ||
        m_view.horizontalScrollBar()->maximum() < m_list.scrollX())
        m_view.updateGeometries();
    m_view.verticalScrollBar()->setValue(m_list.topRow());
    m_view.horizontalScrollBar()->setValue(m_list.scrollX());
}

// The table's own selection is what a screen reader asks for, and what rows are painted by before their cells
// are. A long list's many single rows are known to it only around those in view.
void ListBridge::showSelection() {
    const bool whole = m_list.rowHighlight() != ui::RowHighlight::firstColumn;
    const int lastRow = m_rows.rowCount() - 1, first = whole ? 0 : m_list.layout().neighbour(-1, 0);
    const int last = whole ? m_rows.columnCount() - 1 : first;
    ui::RowSet rows;
    if (first >= 0 && first <= last && m_painter.showsSelection(m_view)) rows = m_list.selection();
    if (rows.ranges().size() > mostKnownRanges) {
        rows.clip(m_list.topRow() + static_cast<int>(mostKnownRanges));
        if (m_list.topRow() > 0) rows.erase(0, m_list.topRow() - 1);
    }
    QItemSelection selection;
    for (const ui::RowSet::Range& range : rows.ranges())
        if (range.first <= lastRow)
            selection.select(m_rows.index(range.first, first),
                             m_rows.index(std::min(range.last, lastRow), last));
    QItemSelectionModel& model = *m_view.selectionModel();
    if (model.selection() != selection) model.select(selection, QItemSelectionModel::ClearAndSelect);
    const QModelIndex focus = m_rows.index(m_list.focusRow(), std::max(0, m_list.focusColumn()));
    if (focus.isValid() && model.currentIndex() != focus)
        model.setCurrentIndex(focus, QItemSelectionModel::NoUpdate);
    m_view.viewport()->update();
}

void ListBridge::showEditor() {
    CWnd* wnd = m_list.editor();
    if (m_editor && wnd == &m_editor->wnd()) return placeInner();
    dropEditor();
    if (!wnd) return;
    QWidget* widget = TemplateLoader::create(widgetClassFor(*wnd), m_view.viewport());
    widget->setObjectName(QString::fromStdString(wnd->name()));
    if (auto* line = qobject_cast<QLineEdit*>(widget)) line->setFrame(false);
    widget->setAutoFillBackground(true);
    m_editor = makeBridge(*wnd, *widget);
    if (!m_editor) {
        delete widget;
        return;
    }
    widget->installEventFilter(this);
    m_editor->changed(ui::Change::items);
    m_editor->refresh();
    placeInner();
    widget->show();
}

void ListBridge::placeInner() {
    if (!m_editor) return;
    const CRect& rect = m_editor->wnd().GetWindowRect();
    const QRect place(rect.left, rect.top, rect.Width(), rect.Height());
    if (m_editor->widget().geometry() != place) m_editor->widget().setGeometry(place);
}

void ListBridge::dropEditor() {
    if (!m_editor) return;
    // What they are doing just now they may finish.
    QWidget& widget = m_editor->widget();
    widget.disconnect(m_editor.get());
    widget.removeEventFilter(this);
    if (&widget == QApplication::focusWidget() || widget.isAncestorOf(QApplication::focusWidget()))
        m_view.setFocus(Qt::OtherFocusReason);
    widget.hide();
    widget.deleteLater();
    m_editor.release()->deleteLater();
}

bool ListBridge::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut) return false;
    if (m_list.rowHighlight() == ui::RowHighlight::whileFocused) changed(ui::Change::selection);
    if (event->type() == QEvent::FocusIn || !m_editor || object != &m_editor->widget()) return false;
    // Another program comes to the front; another window of this one is no reason yet.
    const ui::Toolkit* toolkit = ui::Toolkit::current();
    if (static_cast<QFocusEvent*>(event)->reason() == Qt::ActiveWindowFocusReason &&
        !QApplication::activeWindow() && !QApplication::activePopupWidget() && toolkit &&
        toolkit->topmost() == m_list.dialog())
        m_list.LeaveEditor();
    return false;
}

} // namespace tv::qt
