#include "qt/controls/ComboBridge.h"

#include "platform/toolkit/Dialog.h"
#include "qt/Keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace tv::qt {

ComboBridge::ComboBridge(CComboBox& combo, DropDownBox& widget)
    : Bridge(combo, widget), m_combo(combo), m_box(widget) {
    m_box.setInsertPolicy(QComboBox::NoInsert);
    m_box.setEditable(combo.editable());
    if (combo.editable()) {
        m_box.setCompleter(nullptr); // would change what a person types
        connect(m_box.lineEdit(), &QLineEdit::textEdited, this,
                [this](const QString& text) { user([&] { return m_combo.userEdit(text.toStdWString()); }); });
    }
    connect(&widget, &QComboBox::activated, this,
            [this](int index) { user([&] { return m_combo.userChoose(index); }); });

    const auto closeUp = [this](bool accept) { user([&] { return m_combo.userCloseUp(accept); }); };
    m_box.wantsOpen = [this] { user([&] { return m_combo.userDropDown(); }); };
    m_box.wantsClose = [closeUp] { closeUp(false); };
    DropDownList& list = m_box.list();
    list.closed = [closeUp] { closeUp(false); };
    list.hovered = [this](int row) { user([&] { return m_combo.userHighlight(row); }); };
    list.clicked = [this, closeUp](int row) {
        (void)m_combo.userHighlight(row);
        closeUp(true);
    };
    list.keyPressed = [this](QKeyEvent& event) { return keyInList(event); };
}

// Without a text of its own to edit, the list's keys are the control's; an edited text knows its own keys.
bool ComboBridge::key(const ui::KeyEvent& key) {
    const bool opens = key.key == ui::Key::f4 || key.alt;
    if (key.ctrl || m_combo.dropped()) return false;
    if (m_combo.editable() && !opens && key.key != ui::Key::up && key.key != ui::Key::down) return false;
    const bool used = m_combo.controlKey(key);
    refresh();
    return used;
}

// The open list has the keyboard: its own keys first, then the dialog's, then those of the edited text.
bool ComboBridge::keyInList(QKeyEvent& event) {
    const ui::KeyEvent key = toKeyEvent(event);
    if (key.key != ui::Key::none && m_combo.dialog()->dialogKey(key)) {
        refresh();
        return true;
    }
    if (QLineEdit* line = m_combo.dropped() ? m_box.lineEdit() : nullptr) QApplication::sendEvent(line, &event);
    return true;
}

void ComboBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::items:
        m_box.rows().reset(m_combo.items());
        m_box.itemsChanged();
        showChosen();
        showList();
        break;
    case ui::Change::selection:
    case ui::Change::text:
        showChosen();
        break;
    case ui::Change::dropDown:
        showList();
        break;
    default:
        break;
    }
}

void ComboBridge::showChosen() {
    if (m_box.currentIndex() != m_combo.GetCurSel()) m_box.setCurrentIndex(m_combo.GetCurSel());
    if (QLineEdit* line = m_box.lineEdit()) {
        const QString text = toQt(m_combo.GetWindowText());
        if (line->text() == text) return;
        const int cursor = line->cursorPosition();
        line->setText(text);
        line->setCursorPosition(cursor);
        return;
    }
    // A text that is none of the items.
    const QString other = m_combo.GetCurSel() < 0 ? toQt(m_combo.GetWindowText()) : QString();
    if (m_box.placeholderText() != other) m_box.setPlaceholderText(other);
}

void ComboBridge::showList() {
    DropDownList& list = m_box.list();
    if (m_combo.dropped() != list.isVisible()) {
        if (m_combo.dropped())
            list.open(m_combo.droppedWidth());
        else
            list.hide();
    }
    if (m_combo.dropped()) list.highlight(m_combo.highlighted());
}

} // namespace tv::qt
