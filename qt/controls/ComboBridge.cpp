#include "qt/controls/ComboBridge.h"

#include "platform/toolkit/Dialog.h"
#include "qt/controls/PictureIcon.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QWheelEvent>

namespace tv::qt {

void DropDownBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

ComboBridge::ComboBridge(CComboBox& combo, DropDownBox& widget)
    : Bridge(combo, widget), m_combo(combo), m_box(widget) {
    m_box.setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_box.setInsertPolicy(QComboBox::NoInsert);
    m_box.setEditable(combo.editable());
    if (combo.editable()) {
        m_box.setCompleter(nullptr); // would change what a person types
        connect(m_box.lineEdit(), &QLineEdit::textEdited, this,
                [this](const QString& text) { user([&] { return m_combo.userEdit(text.toStdWString()); }); });
    }
    m_box.mayOpen = [this] {
        bool open = false;
        user([&] {
            auto result = m_combo.userDropDown();
            open = static_cast<bool>(result);
            return result;
        });
        return open && m_combo.dialog()->running();
    };
    connect(&widget, &QComboBox::activated, this,
            [this](int index) { user([&] { return m_combo.userChoose(index); }); });
}

// Without a text of its own to edit, the list's keys are the control's; an edited text knows its own keys.
bool ComboBridge::key(const ui::KeyEvent& key) {
    if (key.alt || key.ctrl || m_box.view()->isVisible()) return false;
    if (m_combo.editable() && key.key != ui::Key::up && key.key != ui::Key::down) return false;
    const bool used = m_combo.controlKey(key);
    refresh();
    return used;
}

void ComboBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::items:
        showItems();
        [[fallthrough]];
    case ui::Change::selection:
    case ui::Change::text:
        if (m_box.currentIndex() != m_combo.GetCurSel()) m_box.setCurrentIndex(m_combo.GetCurSel());
        if (QLineEdit* line = m_box.lineEdit())
            if (const QString text = toQt(m_combo.GetWindowText()); line->text() != text) {
                const int cursor = line->cursorPosition();
                line->setText(text);
                line->setCursorPosition(cursor);
            }
        break;
    default:
        break;
    }
}

void ComboBridge::showItems() {
    const ui::ListItems& items = m_combo.items();
    while (m_box.count() > items.count())
        m_box.removeItem(m_box.count() - 1);
    m_pictures.resize(static_cast<std::size_t>(items.count()));
    QSize size;
    for (int i = 0; i < items.count(); ++i) {
        const ui::ListItem& item = items.at(i);
        auto& shown = m_pictures[static_cast<std::size_t>(i)];
        const QString text = toQt(item.text);
        if (i >= m_box.count()) {
            m_box.addItem(text);
            shown = {};
        } else if (m_box.itemText(i) != text) {
            m_box.setItemText(i, text);
        }
        if (shown != item.picture) {
            m_box.setItemIcon(i, pictureIcon(item.picture));
            shown = item.picture;
        }
        size = size.expandedTo(iconSize(item.picture));
    }
    if (!size.isEmpty()) m_box.setIconSize(size);
}

} // namespace tv::qt
