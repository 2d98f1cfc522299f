#include "qt/controls/StaticBridges.h"

#include "qt/Icons.h"

#include <QGroupBox>
#include <QLabel>

namespace tv::qt {

LabelBridge::LabelBridge(CStatic& label, QLabel& widget) : Bridge(label, widget), m_label(widget) {
    m_label.setTextFormat(Qt::PlainText);
}

void LabelBridge::leadTo(QWidget& widget) {
    if (m_label.buddy() == &widget) return;
    m_label.setBuddy(&widget);
    changed(ui::Change::text);
}

void LabelBridge::show(ui::Change change) {
    if (change != ui::Change::text) return;
    // Qt reads mnemonics in labels that lead somewhere only. Empty lines around a text are not shown.
    const QString text =
        (m_label.buddy() ? toQt(wnd().GetWindowText()) : withoutMnemonic(wnd().GetWindowText())).trimmed();
    if (m_label.text() != text) m_label.setText(text);
}

GroupBoxBridge::GroupBoxBridge(CGroupBox& box, QGroupBox& widget) : Bridge(box, widget), m_box(widget) {}

void GroupBoxBridge::show(ui::Change change) {
    if (change == ui::Change::text) m_box.setTitle(toQt(wnd().GetWindowText()));
}

// The controls in the frame are the widget's children but not the control's: they stay as they are.
void GroupBoxBridge::showEnabled() {
    const QPalette normal = m_box.parentWidget()->palette();
    QPalette palette = normal;
    if (!wnd().IsWindowEnabled())
        palette.setColor(QPalette::WindowText, normal.color(QPalette::Disabled, QPalette::WindowText));
    else if (!m_box.testAttribute(Qt::WA_SetPalette))
        return;
    m_box.setPalette(palette);
    for (QObject* child : m_box.children())
        if (auto* widget = qobject_cast<QWidget*>(child)) widget->setPalette(normal);
}

ImageBridge::ImageBridge(CImage& image, QLabel& widget)
    : Bridge(image, widget), m_image(image), m_label(widget) {}

void ImageBridge::show(ui::Change change) {
    if (change != ui::Change::look) return;
    constexpr int side = 32;
    const QPixmap picture = standardIcon(m_image.icon()).pixmap(QSize(side, side), m_label.devicePixelRatioF());
    m_label.setPixmap(picture);
    m_label.setMinimumSize(picture.isNull() ? QSize(0, 0) : QSize(side, side));
}

} // namespace tv::qt
