#include "qt/controls/ListCellPainter.h"

#include "qt/controls/ListRows.h"
#include "qt/controls/PictureIcon.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace tv::qt {

namespace {

bool hasKeyboard(const QWidget& view) {
    return view.hasFocus() || view.isAncestorOf(QApplication::focusWidget());
}

} // namespace

bool ListCellPainter::showsSelection(const QWidget& view) const {
    return m_list.rowHighlight() != ui::RowHighlight::whileFocused || hasKeyboard(view);
}

void ListCellPainter::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const QWidget* view = option->widget;
    const bool focused = view && hasKeyboard(*view);
    const ui::RowHighlight how = m_list.rowHighlight();
    const bool selected =
        m_list.selection().contains(index.row()) && (!view || showsSelection(*view)) &&
        (how != ui::RowHighlight::firstColumn || index.column() == m_list.layout().neighbour(-1, 0));
    option->state.setFlag(QStyle::State_Selected, selected);
    option->state.setFlag(QStyle::State_HasFocus, focused && index.row() == m_list.focusRow() &&
                                                      index.column() == m_list.focusColumn());
    const ui::ListCell& cell = m_rows.cell(index);
    if (cell.bold) option->font.setBold(true);
    if (cell.textColor)
        option->palette.setColor(QPalette::Text, QColor::fromRgb(0xff000000U | *cell.textColor));
    if (cell.background && !selected) option->backgroundBrush = QColor::fromRgb(0xff000000U | *cell.background);
    // More than any cell has room for would only have to be measured.
    constexpr qsizetype most = 1000;
    if (option->text.size() > most) option->text.truncate(most);
}

// Where cells are gone through by keyboard one must see on a selected row which it is at; the style's own frame
// can hardly be told from the highlight.
void ListCellPainter::paintFocus(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    if (index.row() != m_list.focusRow() || index.column() != m_list.focusColumn()) return;
    QStyleOptionViewItem own(option);
    initStyleOption(&own, index);
    const auto columns = m_list.layout().visible();
    if (!own.state.testFlag(QStyle::State_HasFocus) ||
        std::ranges::none_of(columns, [&](int column) { return m_list.hasEditor(index.row(), column); }))
        return;
    const bool selected = own.state.testFlag(QStyle::State_Selected);
    painter.save();
    painter.setPen(own.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(own.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void ListCellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    paintCell(painter, option, index);
    paintFocus(*painter, option, index);
}

// A picture alone stands where the column's texts would; the style knows it only before a text.
void ListCellPainter::paintCell(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const ui::ListCell& cell = m_rows.cell(index);
    if (!cell.pictureOnly || !cell.picture || cell.checked >= 0)
        return QStyledItemDelegate::paint(painter, option, index);
    const ui::Picture picture = cell.picture;
    QStyleOptionViewItem own(option);
    initStyleOption(&own, index);
    own.icon = {};
    own.features &= ~QStyleOptionViewItem::HasDecoration;
    const QWidget* view = option.widget;
    const QStyle& style = view ? *view->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &own, painter, view);
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
    const QRect room = own.rect.adjusted(margin, 0, -margin, 0);
    const bool selected = own.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setClipRect(own.rect);
    pictureIcon(picture).paint(
        painter, QStyle::alignedRect(own.direction, own.displayAlignment, iconSize(picture), room),
        Qt::AlignCenter,
        own.state.testFlag(QStyle::State_Enabled) ? selected ? QIcon::Selected : QIcon::Normal
                                                  : QIcon::Disabled);
    painter->restore();
}

QStyleOptionViewItem ListCellPainter::optionFor(const QWidget& view, const QRect& cell,
                                                const QModelIndex& index) const {
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.widget = &view;
    option.rect = cell;
    option.decorationSize = static_cast<const QAbstractItemView&>(view).iconSize();
    option.decorationPosition = QStyleOptionViewItem::Left;
    initStyleOption(&option, index);
    return option;
}

QRect ListCellPainter::checkBox(const QWidget& view, const QRect& cell, const QModelIndex& index) const {
    if (m_rows.cell(index).checked < 0) return {};
    const QStyleOptionViewItem option = optionFor(view, cell, index);
    return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
}

bool ListCellPainter::isCutOff(const QWidget& view, const QRect& cell, const QModelIndex& index) const {
    const QStyleOptionViewItem option = optionFor(view, cell, index);
    const QRect room = view.style()->subElementRect(QStyle::SE_ItemViewItemText, &option, &view);
    return QFontMetrics(option.font).horizontalAdvance(option.text) > room.width();
}

} // namespace tv::qt
