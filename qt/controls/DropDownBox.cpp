#include "qt/controls/DropDownBox.h"

#include "qt/controls/Bridge.h"
#include "qt/controls/PictureIcon.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>

namespace tv::qt {
namespace {

constexpr std::size_t longestShown = 400; // characters of a text nobody reads to its end in a list
constexpr int rowsInView = 14;
constexpr int widestHint = 48, widestMinimum = 32; // average characters
constexpr int margin = 2;

// One line, whatever a drawing's names hold.
QString shownText(std::wstring_view text) {
    QString out = toQt(text.substr(0, longestShown));
    for (QChar& ch : out)
        if (ch.category() == QChar::Other_Control || ch == QChar::LineSeparator ||
            ch == QChar::ParagraphSeparator)
            ch = u' ';
    if (text.size() > longestShown) out += u'…';
    return out;
}

// How wide a text is likely to be: characters of the East count twice.
std::size_t likelyWidth(std::wstring_view text) {
    std::size_t width = 0;
    for (const wchar_t ch : text.substr(0, longestShown))
        width += ch >= 0x1100 ? 2 : 1;
    return width;
}

} // namespace

// --- rows ----------------------------------------------------------------------------------------------------

QVariant ItemRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !m_items || !m_items->valid(index.row())) return {};
    const ui::ListItem& item = m_items->at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
        return shownText(item.text);
    case Qt::DecorationRole:
        return item.picture ? QVariant(pictureIcon(item.picture)) : QVariant();
    default:
        return {};
    }
}

void ItemRows::reset(const ui::ListItems& items) {
    beginResetModel();
    m_items = &items;
    m_count = items.count();
    m_longest.clear();
    m_pictureSize = {};

    // Letters differ in width: of the texts that are likely to be the widest, a few are measured.
    constexpr std::size_t candidates = 6;
    std::vector<std::pair<std::size_t, int>> longest;
    for (int i = 0; i < m_count; ++i) {
        const std::size_t width = likelyWidth(items.at(i).text);
        if (longest.size() == candidates && width <= longest.back().first) continue;
        if (longest.size() == candidates) longest.pop_back();
        longest.emplace_back(width, i);
        std::sort(longest.begin(), longest.end(), std::greater<>());
    }
    for (const auto& [width, i] : longest)
        m_longest.push_back(shownText(items.at(i).text));

    // The pictures of a list are of a kind; special entries in front or at its end may be without.
    constexpr int looked = 16;
    for (int i = 0; i < m_count; ++i) {
        if (i == looked) i = std::max(i, m_count - looked);
        m_pictureSize = m_pictureSize.expandedTo(iconSize(items.at(i).picture));
    }
    endResetModel();
}

int ItemRows::textWidth(const QFontMetrics& metrics) const {
    int width = 0;
    for (const QString& text : m_longest)
        width = std::max(width, metrics.horizontalAdvance(text));
    return width;
}

// --- rows of one height --------------------------------------------------------------------------------------

void UniformRowsView::setRowHeight(int height) {
    m_rowHeight = std::max(1, height);
    updateGeometries();
}

int UniformRowsView::verticalOffset() const { return verticalScrollBar()->value() * m_rowHeight; }

QRect UniformRowsView::visualRect(const QModelIndex& index) const {
    if (!index.isValid()) return {};
    const int top = (index.row() - verticalScrollBar()->value()) * m_rowHeight;
    return {0, top, viewport()->width(), m_rowHeight};
}

QModelIndex UniformRowsView::indexAt(const QPoint& point) const {
    const int row = verticalScrollBar()->value() + point.y() / m_rowHeight;
    return model() && point.y() >= 0 && row < rows() ? model()->index(row, 0) : QModelIndex();
}

void UniformRowsView::scrollTo(const QModelIndex& index, ScrollHint) {
    if (!index.isValid()) return;
    const int first = verticalScrollBar()->value(), page = std::max(1, viewport()->height() / m_rowHeight);
    if (index.row() < first) verticalScrollBar()->setValue(index.row());
    if (index.row() >= first + page) verticalScrollBar()->setValue(index.row() - page + 1);
}

// Keys are the control's.
QModelIndex UniformRowsView::moveCursor(CursorAction, Qt::KeyboardModifiers) { return currentIndex(); }
void UniformRowsView::setSelection(const QRect&, QItemSelectionModel::SelectionFlags) {}

QRegion UniformRowsView::visualRegionForSelection(const QItemSelection& selection) const {
    QRegion region;
    for (const QModelIndex& index : selection.indexes())
        region += visualRect(index);
    return region;
}

void UniformRowsView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int first = verticalScrollBar()->value();
    const int last = std::min(rows() - 1, first + viewport()->height() / m_rowHeight);
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = model()->index(row, 0);
        option.rect = visualRect(index);
        option.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
        itemDelegateForIndex(index)->paint(&painter, option, index);
    }
}

void UniformRowsView::resizeEvent(QResizeEvent* event) {
    QAbstractItemView::resizeEvent(event);
    updateGeometries();
}

void UniformRowsView::updateGeometries() {
    const int page = std::max(1, viewport()->height() / m_rowHeight);
    verticalScrollBar()->setSingleStep(1);
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setRange(0, std::max(0, rows() - page));
    QAbstractItemView::updateGeometries();
}

void UniformRowsView::scrollContentsBy(int, int) { viewport()->update(); }

// --- the open list -------------------------------------------------------------------------------------------

DropDownList::DropDownList(QComboBox& box, ItemRows& rows)
    : QFrame(&box, Qt::Popup), m_box(box), m_rows(rows), m_view(this) {
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&m_view);
    m_view.setFrameStyle(QFrame::NoFrame);
    m_view.setMinimumHeight(1); // a short list is as high as its rows
    m_view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view.setSelectionMode(QAbstractItemView::SingleSelection);
    m_view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_view.setTextElideMode(Qt::ElideRight);
    m_view.setModel(&rows);
    m_view.setMouseTracking(true);
    m_view.viewport()->installEventFilter(this);
    m_view.installEventFilter(this);
    setFocusProxy(&m_view);
}

void DropDownList::open(int leastWidth) {
    m_view.setFont(m_box.font());
    const int text = m_view.fontMetrics().height(), picture = m_rows.pictureSize().height();
    m_view.setRowHeight(std::max(text, picture) + 2 * margin);
    m_view.setIconSize(m_rows.pictureSize().isEmpty() ? QSize(16, 16) : m_rows.pictureSize());
    place(leastWidth);
    m_pointer = QCursor::pos();
    show();
    m_view.setFocus();
}

// Below the box or, where there is more room, above it.
void DropDownList::place(int leastWidth) {
    const int row = m_view.rowHeight();
    const int rows = std::clamp(m_rows.rowCount(), 1, rowsInView);
    const int frame = 2 * frameWidth();
    int width = m_rows.textWidth(m_view.fontMetrics()) + 8 * margin + frame;
    if (!m_rows.pictureSize().isEmpty()) width += m_rows.pictureSize().width() + 4 * margin;
    if (m_rows.rowCount() > rowsInView) width += m_view.verticalScrollBar()->sizeHint().width();
    width = std::max({width, m_box.width(), leastWidth});
    int height = rows * row + frame;

    const QPoint below = m_box.mapToGlobal(QPoint(0, m_box.height()));
    const QPoint above = m_box.mapToGlobal(QPoint(0, 0));
    QPoint at = below;
    if (const QScreen* screen = m_box.screen()) {
        const QRect area = screen->availableGeometry();
        width = std::min(width, area.width());
        const int roomBelow = area.bottom() + 1 - below.y(), roomAbove = above.y() - area.top();
        const bool goesUp = height > roomBelow && roomAbove > roomBelow;
        const int room = goesUp ? roomAbove : roomBelow;
        if (height > room) height = std::max(1, (room - frame) / row) * row + frame;
        if (goesUp) at.setY(above.y() - height);
        at.setX(std::clamp(at.x(), area.left(), std::max(area.left(), area.right() + 1 - width)));
    }
    setGeometry(QRect(at, QSize(width, height)));
}

void DropDownList::highlight(int row) {
    const QModelIndex index = row >= 0 ? m_rows.index(row) : QModelIndex();
    if (index == m_view.currentIndex() && m_view.selectionModel()->isSelected(index) == index.isValid()) return;
    if (index.isValid()) {
        m_view.setCurrentIndex(index);
        m_view.scrollTo(index);
    } else {
        m_view.clearSelection();
        m_view.setCurrentIndex({});
    }
}

bool DropDownList::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
        return object == &m_view && keyPressed && keyPressed(static_cast<QKeyEvent&>(*event));
    case QEvent::MouseMove: {
        // A list that opens or scrolls under a pointer at rest is not pointed at.
        const auto& move = static_cast<QMouseEvent&>(*event);
        const QPoint at = move.globalPosition().toPoint();
        if (object != m_view.viewport() || at == m_pointer) return false;
        m_pointer = at;
        const QModelIndex index = m_view.indexAt(move.position().toPoint());
        if (index.isValid() && hovered) hovered(index.row());
        return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return object == m_view.viewport();
    case QEvent::MouseButtonRelease: {
        const auto& release = static_cast<QMouseEvent&>(*event);
        if (object != m_view.viewport() || release.button() != Qt::LeftButton) return false;
        const QModelIndex index = m_view.indexAt(release.position().toPoint());
        if (index.isValid() && clicked) clicked(index.row());
        return true;
    }
    default:
        return QFrame::eventFilter(object, event);
    }
}

// Presses outside arrive here. One on the box itself only closes the list.
void DropDownList::mousePressEvent(QMouseEvent* event) {
    const QRect box(m_box.mapToGlobal(QPoint(0, 0)), m_box.size());
    setAttribute(Qt::WA_NoMouseReplay, box.contains(event->globalPosition().toPoint()));
    if (!rect().contains(event->position().toPoint())) hide();
}

void DropDownList::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    if (closed) closed();
}

// --- the box -------------------------------------------------------------------------------------------------

DropDownBox::DropDownBox(QWidget* parent) : QComboBox(parent), m_list(*this, m_rows) { setModel(&m_rows); }

void DropDownBox::itemsChanged() {
    if (!m_rows.pictureSize().isEmpty()) setIconSize(m_rows.pictureSize());
    updateGeometry();
}

void DropDownBox::showPopup() {
    if (wantsOpen) wantsOpen();
}

void DropDownBox::hidePopup() {
    if (wantsClose) wantsClose();
}

QSize DropDownBox::sizeFor(int textWidth) const {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    QSize size(textWidth, std::max(fontMetrics().height(), 14) + 2);
    if (const QSize picture = m_rows.pictureSize(); !picture.isEmpty())
        size = {size.width() + picture.width() + 4, std::max(size.height(), picture.height() + 2)};
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, size, this);
}

QSize DropDownBox::sizeHint() const {
    const int most = widestHint * fontMetrics().averageCharWidth();
    const int least = 7 * fontMetrics().horizontalAdvance(u'x');
    return sizeFor(std::clamp(m_rows.textWidth(fontMetrics()), std::min(least, most), most));
}

QSize DropDownBox::minimumSizeHint() const {
    const int most = widestMinimum * fontMetrics().averageCharWidth();
    return sizeFor(std::min(m_rows.textWidth(fontMetrics()), most));
}

void DropDownBox::mousePressEvent(QMouseEvent* event) {
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const auto part =
        style()->hitTestComplexControl(QStyle::CC_ComboBox, &option, event->position().toPoint(), this);
    if (event->button() == Qt::LeftButton && (part == QStyle::SC_ComboBoxArrow || !isEditable())) showPopup();
}

void DropDownBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace tv::qt
