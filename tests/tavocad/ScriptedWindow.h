#pragma once

#include "kxgui/frame/ModuleEntry.h"
#include "platform/host/TavoCommandLine.h"
#include "platform/host/TavoInterfaces.h"
#include "platform/host/TavoSysvarManager.h"
#include "platform/text/ReadFile.h"
#include "tavocad/TavoSession.h"
#include "tavocad/window/CommandEdit.h"
#include "tavocad/window/DrawingView.h"
#include "tavocad/window/MainWindow.h"
#include "tavocad/window/QtText.h"
#include "tests/support/NativeHand.h"
#include "tests/support/QtApp.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTest>

#include <gmock/gmock.h>
#include <unistd.h>

#include <deque>

// What a person does one after the other, each step when the program has come to rest: idle, in a dialog, or
// waiting for a point.
class Script : public tv::ui::Driver {
  public:
    void then(std::function<void()> step) { m_steps.push_back(std::move(step)); }

    void run(QtToolkit& toolkit) {
        toolkit.setDriver(this);
        m_ended = false;
        tv::ui::Waiting idle;
        idle.done = [this] { return m_ended; };
        toolkit.wait(idle);
        toolkit.setDriver(nullptr);
    }

    bool step(tv::ui::Waiting& waiting) override {
        // What an event asks for is done after it, and what that asks for after that.
        constexpr int rounds = 5;
        if (++m_rounds < rounds) return true;
        m_rounds = 0;
        if (!m_steps.empty()) {
            const auto next = std::move(m_steps.front());
            m_steps.pop_front();
            next();
        } else if (waiting.dialog || waiting.supply) {
            lost(waiting);
        } else {
            m_ended = true;
        }
        return true;
    }
    void lost(tv::ui::Waiting& waiting) override {
        ADD_FAILURE() << "something still waits for an answer at the end of the script";
        tv::ui::UserAction escape;
        escape.kind = tv::ui::UserAction::Kind::key;
        escape.keyEvent.key = tv::ui::Key::escape;
        if (waiting.dialog)
            waiting.dialog->EndDialog(IDCANCEL);
        else if (waiting.supply)
            static_cast<void>(waiting.supply(escape));
    }

  private:
    std::deque<std::function<void()>> m_steps;
    int m_rounds = 0;
    bool m_ended = false;
};

// The program with its window, driven by mouse and keyboard events, in a folder of its own with a copy of a
// sample drawing. Language Korean, as in the code.
class ScriptedWindow : public testing::Test {
  protected:
    ScriptedWindow() {
        _Init_ZEL_CAD_CTRLdll();
        std::filesystem::create_directories(folder);
        std::filesystem::copy_file(std::filesystem::path(KX_SOURCE_DIR) / "samples" / "workshop.dxf", drawing,
                                   std::filesystem::copy_options::overwrite_existing);
        toolkit.setMainWindow(&window, &window.home());
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QObject::connect(&view, &DrawingView::pointed, &view, [this](double x, double y) { pointed = {x, y}; });
    }
    ~ScriptedWindow() override {
        toolkit.setMainWindow(nullptr);
        std::filesystem::remove_all(folder);
    }

    // --- steps
    void then(std::function<void()> step) { script.then(std::move(step)); }
    void run() { script.run(toolkit); }
    // Types into whatever has the focus.
    void type(const QString& text) {
        then([this, text] {
            for (const QChar ch : text)
                QTest::keyClick(target(), ch.toLatin1());
        });
    }
    void key(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        then([this, key, with] { QTest::keyClick(target(), key, with); });
    }
    void enter(const QString& line) {
        then([this, line] {
            command.setFocus();
            command.setText(line);
        });
        key(Qt::Key_Return);
    }
    void click(const char* control) { act(control, tv::ui::UserAction::Kind::click, -1); }
    void choose(const char* control, int index) { act(control, tv::ui::UserAction::Kind::choose, index); }
    // The menu entry of that text, mnemonic included.
    void menu(const QString& text) {
        then([this, text] {
            QAction* found = action(text);
            ASSERT_TRUE(found) << text.toStdString();
            ASSERT_TRUE(found->isEnabled()) << text.toStdString();
            found->trigger();
        });
    }

    // --- looks
    QAction* action(const QString& text) {
        for (QAction* found : window.findChildren<QAction*>())
            if (found->text() == text) return found;
        return nullptr;
    }
    QString prompt() const {
        for (const QLabel* label : window.findChildren<QLabel*>())
            if (label->buddy() == &command) return label->text();
        return {};
    }
    std::string modal() const {
        const CDialog* topmost = toolkit.topmost();
        return topmost ? topmost->templateName() : std::string();
    }
    // Where in the drawing a pixel of the drawing area is.
    OdGePoint2d at(QPoint pixel) {
        // Not by way of the screen, which knows whole pixels of its own only.
        QMouseEvent event(QEvent::MouseMove, pixel, view.mapToGlobal(pixel), Qt::NoButton, {}, {});
        QApplication::sendEvent(&view, &event);
        return pointed;
    }
    // The pixel of the drawing area at which a place in the drawing is.
    QPoint pixelAt(double x, double y) {
        const OdGePoint2d corner = at({0, 0}), other = at({100, 100});
        return {qRound((x - corner.x) / (other.x - corner.x) * 100),
                qRound((y - corner.y) / (other.y - corner.y) * 100)};
    }
    // What the program said since the last call.
    std::wstring said() {
        std::wstring all;
        for (const OdString& line : session.host().commandLine()->takeNew())
            all += line.wstr() + L"\n";
        return all;
    }
    OdString variable(const wchar_t* name) {
        OdString text;
        session.host().sysvarManager()->getText(name, text, nullptr);
        return text;
    }
    static std::string bytesOf(const std::filesystem::path& file) {
        std::string bytes;
        EXPECT_FALSE(tv::readFile(file, bytes));
        return bytes;
    }
    static QString quoted(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                         ("tavocad-window-" + std::to_string(::getpid()) + "-" +
                                          testing::UnitTest::GetInstance()->current_test_info()->name());
    const std::filesystem::path drawing = folder / "workshop.dxf";
    QApplication& app = qtApp();
    QtToolkit toolkit;
    TavoSession session;
    MainWindow window{session};
    CommandEdit& command = *window.findChild<CommandEdit*>();
    DrawingView& view = *window.findChild<DrawingView*>();
    Script script;
    OdGePoint2d pointed;

  private:
    // Whom the window system would give a key. Without a window manager nobody gives the focus back to the main
    // window when a dialog closes.
    QWidget* target() {
        if (QWidget* popup = QApplication::activePopupWidget()) return popup;
        if (!QApplication::focusWidget() && !QApplication::activeModalWidget()) {
            window.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        }
        return QApplication::focusWidget() ? QApplication::focusWidget() : &window;
    }
    void act(const char* control, tv::ui::UserAction::Kind kind, int index) {
        then([this, control, kind, index] {
            ASSERT_TRUE(toolkit.topmost()) << control;
            CWnd* wnd = toolkit.topmost()->GetDlgItem(control);
            ASSERT_TRUE(wnd) << control << " in " << modal();
            tv::ui::UserAction action;
            action.kind = kind;
            action.index = index;
            NativeHand hand(toolkit);
            EXPECT_TRUE(hand.act(*wnd, action)) << control;
        });
    }
};
