#include "qt/controls/MenuFace.h"

#include "platform/toolkit/Menu.h"
#include "qt/controls/Bridge.h"
#include "qt/controls/PictureIcon.h"

#include <QMenu>
#include <QTimer>

#include <algorithm>

namespace tv::qt {
namespace {

void fill(QMenu& menu, const std::vector<ui::MenuItem>& items, const ui::Menu::Place& within, MenuFace& face,
          ui::Toolkit& toolkit) {
    for (const ui::MenuItem& item : items) {
        if (item.isSeparator()) {
            menu.addSeparator();
            continue;
        }
        QString text = toQt(item.text);
        // Shown only: the keys themselves are the window's matter.
        if (!item.keys.empty()) text += QLatin1Char('\t') + literal(item.keys);
        ui::Menu::Place place = within;
        place.push_back(static_cast<int>(&item - items.data()));
        QAction* action = nullptr;
        if (item.items.empty()) {
            action = menu.addAction(text);
            QObject::connect(action, &QAction::triggered, &face,
                             [&toolkit, place] { (void)toolkit.userMenu(place); });
        } else {
            QMenu* inner = menu.addMenu(text);
            fill(*inner, item.items, place, face, toolkit);
            action = inner->menuAction();
        }
        action->setEnabled(item.available());
        if (item.checked) {
            action->setCheckable(true);
            action->setChecked(*item.checked);
        }
        if (item.picture) action->setIcon(pictureIcon(item.picture));
    }
}

} // namespace

void MenuFace::show(const ui::Menu& menu, QWidget& window, QPoint at) {
    hide();
    m_shown = new QMenu(&window);
    m_shown->setObjectName(QStringLiteral("menu"));
    fill(*m_shown, menu.items(), {}, *this, m_toolkit);
    // A choice closes it on screen before it is known; what is left open then was given up.
    QMenu* const shown = m_shown;
    connect(shown, &QMenu::aboutToHide, this, [this, shown] {
        QTimer::singleShot(0, this, [this, was = QPointer(shown)] {
            if (was && m_shown == was) m_toolkit.closeMenu();
        });
    });
    m_shown->popup(at);
}

void MenuFace::hide() {
    QMenu* const gone = m_shown;
    m_shown = nullptr;
    if (!gone) return;
    gone->hide();
    gone->deleteLater();
}

void MenuFace::moved(const ui::Menu& menu) {
    QMenu* at = m_shown;
    const auto& current = menu.current();
    for (std::size_t depth = 0; at && depth < current.size(); ++depth) {
        const auto index = current[depth];
        QAction* action = index < 0 || index >= at->actions().size() ? nullptr : at->actions().at(index);
        if (depth + 1 == current.size()) {
            // What stood open further in is left.
            if (QAction* before = at->activeAction(); before && before->menu()) before->menu()->hide();
        }
        if (action) at->setActiveAction(action);
        at = action ? action->menu() : nullptr;
    }
}

} // namespace tv::qt
