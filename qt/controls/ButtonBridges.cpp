#include "qt/controls/ButtonBridges.h"

#include "platform/toolkit/Dialog.h"
#include "qt/controls/CommandButton.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

namespace tv::qt {

ButtonBridge::ButtonBridge(CButton& button, QAbstractButton& widget)
    : Bridge(button, widget), m_button(widget) {
    // The control decides which radio buttons exclude each other.
    m_button.setAutoExclusive(false);
    if (auto* push = qobject_cast<QPushButton*>(&widget)) push->setAutoDefault(false);
    connect(&widget, &QAbstractButton::clicked, this,
            [this, &button] { user([&] { return button.userClick(); }); });
}

// The arrow keys move within a radio group; Qt would take them to whatever stands beside.
bool ButtonBridge::key(const ui::KeyEvent& key) {
    switch (key.key) {
    case ui::Key::left:
    case ui::Key::right:
    case ui::Key::up:
    case ui::Key::down:
        wnd().controlKey(key);
        refresh();
        return true;
    default:
        return false;
    }
}

void ButtonBridge::show(ui::Change change) {
    switch (change) {
    case ui::Change::text:
        if (auto* command = dynamic_cast<CommandButton*>(&m_button)) {
            const auto& control = static_cast<CCommandButton&>(wnd());
            command->setText(toQt(control.command()));
            command->setDescription(toQt(control.explanation()));
        } else if (const QString text = toQt(wnd().GetWindowText()); m_button.text() != text) {
            m_button.setText(text);
        }
        break;
    case ui::Change::look:
        if (auto* push = qobject_cast<QPushButton*>(&m_button)) {
            const CDialog* dialog = wnd().dialog();
            push->setDefault(dialog && static_cast<CWnd*>(dialog->defaultButton()) == &wnd());
        }
        break;
    case ui::Change::checked:
        showCheck();
        break;
    default:
        break;
    }
}

void ButtonBridge::showCheck() {
    if (wnd().kind() == ui::ControlKind::radioButton) {
        m_button.setChecked(static_cast<CRadioButton&>(wnd()).GetCheck());
    } else if (wnd().kind() == ui::ControlKind::checkBox) {
        const auto& control = static_cast<CCheckBox&>(wnd());
        auto& box = static_cast<QCheckBox&>(m_button);
        box.setTristate(control.triState());
        box.setCheckState(control.GetCheck() == CCheckBox::mixed     ? Qt::PartiallyChecked
                          : control.GetCheck() == CCheckBox::checked ? Qt::Checked
                                                                     : Qt::Unchecked);
    }
}

} // namespace tv::qt
