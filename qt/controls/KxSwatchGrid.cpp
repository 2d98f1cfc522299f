#include "qt/controls/KxSwatchGrid.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace tv::qt {
namespace {
constexpr int smallestSide = 16, usualSide = 18, biggestSide = 30;
constexpr int frame = 2; // room for the frame of a cell at the edge
} // namespace

KxSwatchGrid::KxSwatchGrid(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void KxSwatchGrid::setControl(const CSwatchGrid* control) {
    m_control = control;
    cellsChanged();
}

void KxSwatchGrid::cellsChanged() {
    m_hovered = -1;
    updateGeometry();
    update();
}

int KxSwatchGrid::columns() const { return m_control ? std::max(1, m_control->columns()) : 1; }

int KxSwatchGrid::rows() const {
    return m_control ? (static_cast<int>(m_control->cells().size()) + columns() - 1) / columns() : 0;
}

int KxSwatchGrid::side() const {
    if (rows() == 0) return usualSide;
    const int fitting = std::min((width() - 2 * frame) / columns(), (height() - 2 * frame) / rows());
    return std::clamp(fitting, smallestSide, biggestSide);
}

QSize KxSwatchGrid::sizeHint() const {
    return {columns() * usualSide + 2 * frame, std::max(1, rows()) * usualSide + 2 * frame};
}

QSize KxSwatchGrid::minimumSizeHint() const {
    return {columns() * smallestSide + 2 * frame, std::max(1, rows()) * smallestSide + 2 * frame};
}

QRect KxSwatchGrid::cellRect(int index) const {
    return {frame + index % columns() * side(), frame + index / columns() * side(), side(), side()};
}

int KxSwatchGrid::cellAt(QPoint point) const {
    if (!m_control || point.x() < frame || point.y() < frame) return -1;
    const int column = (point.x() - frame) / side(), row = (point.y() - frame) / side();
    const int index = row * columns() + column;
    return column < columns() && index < static_cast<int>(m_control->cells().size()) ? index : -1;
}

void KxSwatchGrid::paintEvent(QPaintEvent* event) {
    if (!m_control) return;
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(0.4);
    const auto& cells = m_control->cells();
    for (int i = 0; i < static_cast<int>(cells.size()); ++i) {
        const QRect cell = cellRect(i).adjusted(1, 1, -1, -1);
        if (!event->rect().intersects(cell)) continue;
        painter.setPen(QPen(palette().color(QPalette::Mid), 0));
        painter.setBrush(QColor::fromRgb(0xff000000U | cells[static_cast<std::size_t>(i)].rgb));
        painter.drawRect(QRectF(cell).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    const int selected = m_control->GetCurSel();
    if (selected < 0) return;
    // Two frames, dark and light, stand out from every colour.
    painter.setBrush(Qt::NoBrush);
    const QRectF mark = QRectF(cellRect(selected)).adjusted(0, 0, -1, -1);
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText), 2));
    painter.drawRect(mark.adjusted(0, 0, 1, 1));
    painter.setPen(QPen(palette().color(QPalette::Base), 1));
    painter.drawRect(mark.adjusted(2, 2, -1, -1));
}

void KxSwatchGrid::mousePressEvent(QMouseEvent* event) {
    if (const int cell = cellAt(event->position().toPoint()); cell >= 0 && event->button() == Qt::LeftButton)
        emit chosen(cell);
}

void KxSwatchGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (const int cell = cellAt(event->position().toPoint()); cell >= 0 && event->button() == Qt::LeftButton)
        emit doubleClicked(cell);
}

void KxSwatchGrid::mouseMoveEvent(QMouseEvent* event) {
    const int cell = cellAt(event->position().toPoint());
    if (cell == m_hovered) return;
    m_hovered = cell;
    emit hovered(cell);
}

void KxSwatchGrid::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    if (m_hovered >= 0) emit hovered(-1);
    m_hovered = -1;
}

bool KxSwatchGrid::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !m_control) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const int cell = cellAt(help->pos()); cell >= 0)
        QToolTip::showText(help->globalPos(), toQt(m_control->cells()[static_cast<std::size_t>(cell)].name),
                           this, cellRect(cell));
    else
        QToolTip::hideText();
    return true;
}

SwatchGridBridge::SwatchGridBridge(CSwatchGrid& grid, KxSwatchGrid& widget)
    : Bridge(grid, widget), m_control(grid), m_grid(widget) {
    m_grid.setControl(&grid);
    connect(&widget, &KxSwatchGrid::chosen, this,
            [this](int i) { user([&] { return m_control.userChoose(i); }); });
    connect(&widget, &KxSwatchGrid::doubleClicked, this,
            [this](int i) { user([&] { return m_control.userDoubleClick(i); }); });
    connect(&widget, &KxSwatchGrid::hovered, this,
            [this](int i) { user([&] { return m_control.userHover(i); }); });
}

bool SwatchGridBridge::key(const ui::KeyEvent& key) {
    const bool used = m_control.controlKey(key);
    refresh();
    return used;
}

void SwatchGridBridge::show(ui::Change change) {
    if (change == ui::Change::items) m_grid.cellsChanged();
    if (change != ui::Change::items && change != ui::Change::selection) return;
    // A screen reader says the chosen cell as the description of the table.
    const int selected = m_control.GetCurSel();
    m_grid.setAccessibleDescription(
        selected < 0 ? QString() : toQt(m_control.cells()[static_cast<std::size_t>(selected)].name));
    m_grid.update();
}

} // namespace tv::qt
