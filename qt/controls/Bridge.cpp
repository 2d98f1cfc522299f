#include "qt/controls/Bridge.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QWidget>

namespace tv::qt {

QString withoutMnemonic(std::wstring_view text) {
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && i + 1 < text.size()) ++i;
        out += text[i];
    }
    return toQt(out);
}

QString literal(std::wstring_view text) { return toQt(text).replace(QLatin1Char('&'), QLatin1String("&&")); }

Bridge::Bridge(CWnd& wnd, QWidget& widget) : m_wnd(wnd), m_widget(widget) {}

void Bridge::refresh() {
    using enum ui::Change;
    for (const ui::Change change :
         {look, label, tooltip, editing, selection, checked, text, enabled, visible, dropDown})
        changed(change);
}

QPoint Bridge::menuPlace() const { return m_widget.mapToGlobal(m_widget.rect().bottomLeft()); }

void Bridge::retire() {
    m_retired = true;
    m_widget.disconnect(this);
}

void Bridge::changed(ui::Change change) {
    if (m_retired) return;
    const QSignalBlocker quiet(m_widget);
    const QScopedValueRollback showing(m_showing, true);
    showOne(change);
}

void Bridge::showOne(ui::Change change) {
    switch (change) {
    case ui::Change::enabled:
        showEnabled();
        break;
    case ui::Change::visible:
        showVisible();
        break;
    case ui::Change::label:
        showNames();
        break;
    case ui::Change::tooltip: {
        // Qt would take texts that look like mark-up for mark-up.
        const QString tip = toQt(m_wnd.toolTip());
        const QString plain = tip.isEmpty() ? tip : QLatin1String("<span>%1</span>").arg(tip.toHtmlEscaped());
        if (m_widget.toolTip() != plain) m_widget.setToolTip(plain);
        break;
    }
    case ui::Change::look:
        showLook();
        show(change);
        break;
    case ui::Change::text:
        show(change);
        showNames();
        break;
    case ui::Change::rect:  // the layout places the widgets
    case ui::Change::focus: // the window's matter
        break;
    default:
        show(change);
    }
}

void Bridge::showEnabled() {
    if (m_widget.isEnabledTo(m_widget.parentWidget()) != m_wnd.IsWindowEnabled())
        m_widget.setEnabled(m_wnd.IsWindowEnabled());
}

void Bridge::showVisible() {
    if (m_widget.isHidden() == m_wnd.shown()) m_widget.setVisible(m_wnd.shown());
}

void Bridge::showLook() {
    const QWidget* parent = m_widget.parentWidget();
    if (!parent) return;
    if (m_wnd.fontScale() == 1.0 && !m_wnd.fontBold() && !m_widget.testAttribute(Qt::WA_SetFont)) return;
    QFont font = parent->font();
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * m_wnd.fontScale());
    else
        font.setPixelSize(qRound(font.pixelSize() * m_wnd.fontScale()));
    font.setBold(m_wnd.fontBold());
    if (m_widget.font() != font) m_widget.setFont(font);
}

void Bridge::showNames() {
    const QString name = toQt(m_wnd.accessibleName());
    if (m_widget.accessibleName() != name) m_widget.setAccessibleName(name);
}

} // namespace tv::qt
