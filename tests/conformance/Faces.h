#pragma once

#include "platform/toolkit/TreeCtrl.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#include "platform/toolkit/headless/SimulatedUser.h"

#include <gtest/gtest.h>

#ifdef KX_WITH_QT
#include "tests/support/NativeHand.h"
#include "tests/support/QtApp.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#endif

// A face under test: its toolkit, the hand that acts in it, and how its time passes.
struct HeadlessFace {
    tv::ui::HeadlessToolkit toolkit;
    std::unique_ptr<tv::ui::Hand> hand() { return std::make_unique<tv::ui::Hand>(); }
    void pass(std::chrono::milliseconds time) { toolkit.advance(time); }
    // What the face shows of a control's text, enabled and visible state must be what the control says.
    void expectShown(const CDialog&) {}
    // A main window that holds the bar.
    int hold(const CDialog&) { return 0; }
    bool homeHasKeyboard(int) const { return !toolkit.active(); }
    // Whether an item's name is being entered.
    bool editing(const CTreeCtrl& tree) const { return tree.editedItem() != 0; }
};

#ifdef KX_WITH_QT
struct QtFace {
    QtFace() {
        toolkit.addTemplatePath(QStringLiteral(KX_SOURCE_DIR "/tests/conformance/ui"));
        watchdog.callOnTimeout([this] {
            for (CDialog* dialog : toolkit.modalStack()) {
                ADD_FAILURE() << "left open:\n" << tv::ui::toText(tv::ui::snapshot(*dialog));
                dialog->EndDialog(-2);
            }
        });
        watchdog.start(8000);
    }
    std::unique_ptr<tv::ui::Hand> hand() { return std::make_unique<NativeHand>(toolkit); }
    void pass(std::chrono::milliseconds time) { QTest::qWait(static_cast<int>(time.count())); }
    void expectShown(const CDialog& dialog) { expectShownBelow(dialog); }
    void expectShownBelow(const CWnd& parent) {
        for (const CWnd* wnd : parent.children()) {
            const QWidget* widget = toolkit.widgetOf(*wnd);
            ASSERT_NE(widget, nullptr) << wnd->name();
            EXPECT_EQ(!widget->isHidden(), wnd->shown()) << wnd->name();
            if (wnd->kind() != tv::ui::ControlKind::groupBox) {
                EXPECT_EQ(widget->isEnabledTo(widget->parentWidget()), wnd->IsWindowEnabled()) << wnd->name();
            }
            if (const auto* tree = dynamic_cast<const CTreeCtrl*>(wnd)) {
                EXPECT_EQ(shownItems(*static_cast<const QTreeWidget*>(widget)->invisibleRootItem()),
                          items(tree->root()));
            }
            expectShownBelow(*wnd);
        }
    }

    static std::wstring items(const tv::ui::TreeItem& parent) {
        std::wstring out;
        for (const auto& child : parent.children)
            out += child->text + (child->expanded && !child->children.empty() ? L" open" : L"") + L"(" +
                   items(*child) + L")";
        return out;
    }
    static std::wstring shownItems(const QTreeWidgetItem& parent) {
        std::wstring out;
        for (int i = 0; i < parent.childCount(); ++i) {
            const QTreeWidgetItem& child = *parent.child(i);
            out += child.text(0).toStdWString() + (child.isExpanded() && child.childCount() ? L" open" : L"") +
                   L"(" + shownItems(child) + L")";
        }
        return out;
    }
    bool editing(const CTreeCtrl& tree) const {
        const auto editors =
            static_cast<QTreeWidget*>(toolkit.widgetOf(tree))->viewport()->findChildren<QLineEdit*>();
        return std::any_of(editors.begin(), editors.end(), [](const auto* line) { return line->isVisible(); });
    }

    std::unique_ptr<QWidget> hold(const CDialog& bar) {
        auto window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(window.get());
        auto* home = new QLineEdit(window.get());
        layout->addWidget(toolkit.windowOf(bar));
        layout->addWidget(home);
        toolkit.setMainWindow(window.get(), home);
        window->show();
        window->activateWindow();
        home->setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        return window;
    }
    bool homeHasKeyboard(const std::unique_ptr<QWidget>& window) const {
        return window->findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)->hasFocus();
    }

    QApplication& app = qtApp();
    QtToolkit toolkit;
    QTimer watchdog;
};
using Faces = testing::Types<HeadlessFace, QtFace>;
#else
using Faces = testing::Types<HeadlessFace>;
#endif
