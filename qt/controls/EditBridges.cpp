#include "qt/controls/EditBridges.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace tv::qt {

// The longest text is the control's matter: Qt counts UTF-16 units, the control counts characters.

LineEditBridge::LineEditBridge(CEdit& edit, QLineEdit& widget)
    : Bridge(edit, widget), m_edit(edit), m_line(widget) {
    connect(&widget, &QLineEdit::textEdited, this,
            [this](const QString& text) { user([&] { return m_edit.userType(text.toStdWString()); }); });
}

void LineEditBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::text:
        if (const QString text = toQt(m_edit.GetWindowText()); m_line.text() != text) {
            const int cursor = m_line.cursorPosition();
            m_line.setText(text);
            if (m_line.hasFocus())
                m_line.setCursorPosition(cursor);
            else
                m_line.setCursorPosition(0); // a long text shows its beginning
        }
        break;
    case ui::Change::editing:
        m_line.setReadOnly(m_edit.readOnly());
        m_line.setAlignment(Qt::AlignVCenter | (m_edit.align() == ui::TextAlign::right    ? Qt::AlignRight
                                                : m_edit.align() == ui::TextAlign::center ? Qt::AlignHCenter
                                                                                          : Qt::AlignLeft));
        break;
    case ui::Change::selection:
        if (m_edit.allSelected()) m_line.selectAll();
        break;
    default:
        break;
    }
}

TextEditBridge::TextEditBridge(CEdit& edit, QPlainTextEdit& widget)
    : Bridge(edit, widget), m_edit(edit), m_text(widget) {
    connect(&widget, &QPlainTextEdit::textChanged, this,
            [this] { user([&] { return m_edit.userType(m_text.toPlainText().toStdWString()); }); });
}

void TextEditBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::text:
        if (const QString text = toQt(m_edit.GetWindowText()); m_text.toPlainText() != text) {
            const int position = m_text.textCursor().position();
            m_text.setPlainText(text);
            QTextCursor cursor = m_text.textCursor();
            cursor.setPosition(std::min(position, static_cast<int>(text.size())));
            m_text.setTextCursor(cursor);
        }
        break;
    case ui::Change::editing:
        m_text.setReadOnly(m_edit.readOnly());
        break;
    case ui::Change::selection:
        if (m_edit.allSelected()) m_text.selectAll();
        break;
    default:
        break;
    }
}

} // namespace tv::qt
