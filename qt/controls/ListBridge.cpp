#include "qt/controls/ListBridge.h"

#include "qt/controls/PictureIcon.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QScrollBar>
#include <QTableView>

namespace tv::qt {

QWidget* CellEditor::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                  const QModelIndex& index) const {
    auto* editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setProperty("cell", QVariant::fromValue(QPersistentModelIndex(index)));
    return editor;
}

// Reached when the focus leaves the editor; a refused text is given up then.
void CellEditor::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    commit(*editor, index);
}

bool CellEditor::commit(QWidget& editor, const QModelIndex& index) const {
    auto& line = static_cast<QLineEdit&>(editor);
    if (line.property("done").toBool()) return true;
    const QString text = line.text();
    const bool accepted =
        text == index.data(Qt::EditRole).toString() || (accept && accept(index, text.toStdWString()));
    if (accepted) line.setProperty("done", true);
    return accepted;
}

bool CellEditor::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        auto* editor = static_cast<QWidget*>(object);
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            const auto index = editor->property("cell").value<QPersistentModelIndex>();
            if (!index.isValid() || commit(*editor, index)) emit closeEditor(editor, NoHint);
            return true;
        }
        if (key == Qt::Key_Escape) editor->setProperty("done", true);
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

ListBridge::ListBridge(CListCtrl& list, QTableView& widget)
    : Bridge(list, widget), m_list(list), m_view(widget), m_rows(list) {
    m_view.setModel(&m_rows);
    m_view.setItemDelegate(&m_editor);
    m_view.setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view.setSelectionMode(list.multiSelect() ? QAbstractItemView::ExtendedSelection
                                               : QAbstractItemView::SingleSelection);
    m_view.setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    m_view.setTabKeyNavigation(false);
    m_view.setIconSize(largestPicture);
    m_view.setShowGrid(false);
    m_view.setWordWrap(false);
    m_view.verticalHeader()->hide();
    m_view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_view.verticalHeader()->setDefaultSectionSize(std::max(20, m_view.fontMetrics().height() + 6));
    m_view.horizontalHeader()->setSectionsClickable(true);
    m_view.horizontalHeader()->setHighlightSections(false);
    m_view.horizontalHeader()->setStretchLastSection(true);

    m_editor.accept = [this](const QModelIndex& index, const std::wstring& text) {
        return static_cast<bool>(m_list.userEdit(index.row(), index.column(), text));
    };
    connect(m_view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ListBridge::selectionByUser);
    connect(m_view.horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { user([&] { return m_list.userHeader(column); }); });
    connect(&m_view, &QTableView::clicked, this, [this](const QModelIndex& index) {
        // With Ctrl or Shift a click changes the selection only, which has been reported.
        if (QApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) return;
        user([&] { return m_list.userClick(index.row(), index.column()); });
    });
    connect(&m_view, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        user([&] { return m_list.userDoubleClick(index.row(), index.column()); });
    });
}

void ListBridge::selectionByUser() {
    if (showing()) return;
    std::vector<int> rows;
    for (const QModelIndex& index : m_view.selectionModel()->selectedRows())
        rows.push_back(index.row());
    user([&] { return m_list.userSelect(std::move(rows)); });
}

void ListBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::items:
        showRows();
        showSelection();
        break;
    case ui::Change::columns:
        showColumns();
        break;
    case ui::Change::scroll:
        m_view.verticalScrollBar()->setValue(m_list.topRow());
        break;
    case ui::Change::selection:
        showSelection();
        break;
    case ui::Change::look:
        m_view.horizontalHeader()->setSortIndicatorShown(m_list.sortColumn() >= 0);
        m_view.horizontalHeader()->setSortIndicator(
            m_list.sortColumn(), m_list.sortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
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
    }
    showColumns();
}

void ListBridge::showColumns() {
    const auto& columns = m_list.columns();
    m_widths.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int at = static_cast<int>(i);
        if (m_view.isColumnHidden(at) == columns[i].visible) m_view.setColumnHidden(at, !columns[i].visible);
        // A width the person dragged stays until the dialog asks for another one.
        if (!columns[i].visible || m_widths[i] == columns[i].width) continue;
        m_widths[i] = columns[i].width;
        // At least as wide as the title in the current language.
        m_view.setColumnWidth(at, std::max(m_widths[i], m_view.horizontalHeader()->sectionSizeHint(at)));
    }
}

void ListBridge::showSelection() {
    QItemSelection selection;
    const ui::RowSet& rows = m_list.selection();
    const int lastColumn = m_rows.columnCount() - 1;
    if (lastColumn >= 0)
        for (const ui::RowSet::Range& range : rows.ranges())
            selection.select(m_rows.index(range.first, 0), m_rows.index(range.last, lastColumn));
    QItemSelectionModel& model = *m_view.selectionModel();
    if (model.selection() != selection) model.select(selection, QItemSelectionModel::ClearAndSelect);
    if (!rows.empty() && !model.isRowSelected(model.currentIndex().row()))
        model.setCurrentIndex(m_rows.index(rows.first(), 0), QItemSelectionModel::NoUpdate);
}

} // namespace tv::qt
