#include "qt/controls/CommandButton.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

namespace tv::qt {
namespace {

constexpr int margin = 9, gap = 3, arrowWidth = 26;
constexpr int titleFlags = Qt::AlignLeft | Qt::TextShowMnemonic | Qt::TextWordWrap;
constexpr int descriptionFlags = Qt::AlignLeft | Qt::TextWordWrap;

int textWidthIn(int width) { return std::max(1, width - arrowWidth - 2 * margin); }

int heightOf(const QFont& font, int width, int flags, const QString& text) {
    if (text.isEmpty()) return 0;
    return QFontMetrics(font).boundingRect(0, 0, width, 10000, flags, text).height();
}

} // namespace

CommandButton::CommandButton(QWidget* parent) : QCommandLinkButton(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum, QSizePolicy::PushButton);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QFont CommandButton::titleFont() const {
    QFont out = font();
    out.setBold(true);
    return out;
}

// The dialog's font: the scale of a command button is its title's.
QFont CommandButton::descriptionFont() const { return parentWidget() ? parentWidget()->font() : font(); }

int CommandButton::titleHeight(int textWidth) const {
    return heightOf(titleFont(), textWidth, titleFlags, text());
}

int CommandButton::descriptionHeight(int textWidth) const {
    return heightOf(descriptionFont(), textWidth, descriptionFlags, description());
}

QSize CommandButton::sizeHint() const {
    const int title = QFontMetrics(titleFont()).size(Qt::TextShowMnemonic, text()).width();
    const int below = QFontMetrics(descriptionFont()).size(0, description()).width();
    const int width = std::max(title, std::min(below, 320)) + arrowWidth + 2 * margin + 2;
    return {width, heightForWidth(width)};
}

QSize CommandButton::minimumSizeHint() const {
    const int width = std::min(sizeHint().width(), 240);
    return {width, heightForWidth(sizeHint().width())};
}

int CommandButton::heightForWidth(int width) const {
    const int inner = textWidthIn(width);
    const int below = descriptionHeight(inner);
    return 2 * margin + titleHeight(inner) + (below > 0 ? gap + below : 0);
}

void CommandButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = QIcon();
    style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(3, 3, -3, -3);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }

    const int inner = textWidthIn(width());
    const int title = titleHeight(inner), below = descriptionHeight(inner);
    const int top = (height() - title - (below > 0 ? gap + below : 0)) / 2;
    const QColor textColor =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    painter.setRenderHint(QPainter::Antialiasing);
    // Beside the first line, whose height is that of the fonts its characters really come from.
    const QString firstLine = text().isEmpty() ? QStringLiteral("X") : text().left(1);
    const double middle = top + heightOf(titleFont(), inner, Qt::AlignLeft, firstLine) / 2.0, left = margin + 2;
    painter.setPen(QPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Link), 2,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawLine(QPointF(left, middle), QPointF(left + 13, middle));
    painter.drawPolyline(QPolygonF({{left + 8, middle - 5}, {left + 13, middle}, {left + 8, middle + 5}}));

    painter.setPen(textColor);
    painter.setFont(titleFont());
    painter.drawText(QRect(margin + arrowWidth, top, inner, title), titleFlags, text());
    painter.setFont(descriptionFont());
    painter.drawText(QRect(margin + arrowWidth, top + title + gap, inner, below), descriptionFlags,
                     description());
}

} // namespace tv::qt
