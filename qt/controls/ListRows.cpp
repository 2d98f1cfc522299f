#include "qt/controls/ListRows.h"

#include "qt/controls/Bridge.h"
#include "qt/controls/PictureIcon.h"

namespace tv::qt {

int ListRows::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_rows; }

int ListRows::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_columns; }

const ui::ListCell& ListRows::cell(const QModelIndex& index) const {
    if (m_row != index.row() || m_column != index.column()) {
        m_cell = m_list.cell(index.row(), index.column());
        m_row = index.row();
        m_column = index.column();
    }
    return m_cell;
}

QVariant ListRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= m_rows || index.column() >= m_columns) return {};
    switch (role) {
    case Qt::DisplayRole:
        return cell(index).pictureOnly ? QVariant() : QVariant(toQt(cell(index).text));
    case Qt::EditRole:
    case Qt::AccessibleTextRole:
        return toQt(cell(index).text);
    case Qt::AccessibleDescriptionRole:
        return cell(index).hint.empty() ? QVariant() : QVariant(toQt(cell(index).hint));
    case Qt::DecorationRole: {
        const ui::Picture& picture = cell(index).picture;
        return picture ? QVariant(pictureIcon(picture)) : QVariant();
    }
    case Qt::CheckStateRole: {
        const int checked = cell(index).checked;
        return checked < 0 ? QVariant() : QVariant(checked ? Qt::Checked : Qt::Unchecked);
    }
    case Qt::TextAlignmentRole:
        switch (m_list.columns()[static_cast<std::size_t>(index.column())].align) {
        case ui::ListColumn::Align::left:
            return QVariant(Qt::AlignVCenter | Qt::AlignLeft);
        case ui::ListColumn::Align::right:
            return QVariant(Qt::AlignVCenter | Qt::AlignRight);
        case ui::ListColumn::Align::center:
            return QVariant(Qt::AlignCenter);
        }
        return {};
    default:
        return {};
    }
}

QVariant ListRows::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= m_columns) return {};
    const ui::ListColumn& column = m_list.columns()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return toQt(column.title);
    if (role != Qt::ToolTipRole) return {};
    constexpr int aroundTitle = 8; // pixels
    const bool cutOff = m_list.textWidth(column.title) + aroundTitle > m_list.columnWidth(section);
    const std::wstring& hint = column.hint.empty() && cutOff ? column.title : column.hint;
    return hint.empty() ? QVariant() : QLatin1String("<span>%1</span>").arg(toQt(hint).toHtmlEscaped());
}

Qt::ItemFlags ListRows::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren
                           : Qt::ItemFlags();
}

void ListRows::reset() {
    beginResetModel();
    m_rows = m_list.GetItemCount();
    m_columns = static_cast<int>(m_list.columns().size());
    m_row = -1;
    endResetModel();
}

void ListRows::rowsChanged(int first, int last) {
    m_row = -1;
    const int count = m_list.GetItemCount();
    if (count != m_rows) {
        first = 0;
        last = -1;
    }
    // Rows come and go at the end, as the table sees it: what it knows of the columns stays.
    if (count > m_rows) {
        beginInsertRows({}, m_rows, count - 1);
        m_rows = count;
        endInsertRows();
    } else if (count < m_rows) {
        beginRemoveRows({}, count, m_rows - 1);
        m_rows = count;
        endRemoveRows();
    }
    if (m_rows == 0 || m_columns == 0) return;
    const int end = last < 0 ? m_rows - 1 : std::min(last, m_rows - 1);
    emit dataChanged(index(std::clamp(first, 0, end), 0), index(end, m_columns - 1));
}

} // namespace tv::qt
