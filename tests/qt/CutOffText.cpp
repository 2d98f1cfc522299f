#include "tests/qt/CutOffText.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QGroupBox>
#include <QLabel>
#include <QStyleOptionComboBox>
#include <QTabBar>

namespace {

bool fits(const QSize& needed, const QWidget& widget) {
    return needed.width() <= widget.width() && needed.height() <= widget.height();
}

bool showsAll(const QLabel& label) {
    if (!label.wordWrap()) return fits(label.minimumSizeHint(), label);
    const int widestWord =
        label.fontMetrics().boundingRect(0, 0, label.width(), 10000, Qt::TextWordWrap, label.text()).width();
    return label.heightForWidth(label.width()) <= label.height() && widestWord <= label.width();
}

bool showsAll(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    const QRect field =
        box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    const int icon = box.itemIcon(box.currentIndex()).isNull() ? 0 : box.iconSize().width() + 4;
    return box.fontMetrics().horizontalAdvance(box.currentText()) + icon <= field.width();
}

bool showsAll(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text().isEmpty() || showsAll(*label);
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) return showsAll(*box);
    if (const auto* command = qobject_cast<const QCommandLinkButton*>(&widget))
        return command->heightForWidth(command->width()) <= command->height();
    if (qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QTabBar*>(&widget))
        return fits(widget.sizeHint(), widget);
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget))
        return group->fontMetrics().horizontalAdvance(group->title()) < group->width() - 8;
    return true;
}

} // namespace

std::vector<std::string> cutOffTexts(const QWidget& window) {
    std::vector<std::string> out;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || !widget->objectName().startsWith(QLatin1String("ID"))) continue;
        const std::string who = widget->objectName().toStdString();
        if (!showsAll(*widget)) out.push_back(who + " is too small for its text");
        if (!widget->parentWidget()->rect().contains(widget->geometry())) out.push_back(who + " stands out");
    }
    return out;
}
