// What only a face with widgets can get wrong.
#include "platform/toolkit/Pictures.h"
#include "qt/Theme.h"
#include "tests/conformance/ProbeDlg.h"
#include "tests/qt/CutOffText.h"
#include "tests/support/NativeHand.h"
#include "tests/support/QtApp.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

#include <cmath>
#include <thread>

using namespace std::chrono_literals;

namespace {

class QtFaceTest : public testing::Test {
  protected:
    QtFaceTest() { toolkit.addTemplatePath(QStringLiteral(KX_SOURCE_DIR "/tests/conformance/ui")); }

    void run(ProbeDlg& dialog, const std::function<void(QWidget& window)>& does) {
        tv::ui::SimulatedUser user(toolkit, [](const std::string& m) { ADD_FAILURE() << m; });
        user.expect<ProbeDlg>([&](tv::ui::WindowUser&) {
            QApplication::processEvents();
            does(*toolkit.windowOf(dialog));
            dialog.EndDialog(IDCANCEL);
        });
        dialog.DoModal();
    }

    QApplication& app = qtApp();
    QtToolkit toolkit;
    ProbeModule module;
};

// Until the layouts within layouts have all had their turn.
void settle() {
    for (int i = 0; i < 4; ++i)
        QApplication::processEvents();
}

double luminance(const QColor& color) {
    const auto linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a) + 0.05, other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

} // namespace

TEST_F(QtFaceTest, ThemesAreReadable) {
    using P = QPalette;
    const std::pair<P::ColorRole, P::ColorRole> pairs[] = {
        {P::WindowText, P::Window},       {P::Text, P::Base},
        {P::ButtonText, P::Button},       {P::Text, P::AlternateBase},
        {P::ToolTipText, P::ToolTipBase}, {P::HighlightedText, P::Highlight}};
    for (const auto theme : {tv::qt::Theme::light, tv::qt::Theme::dark}) {
        const P palette = tv::qt::themePalette(theme);
        for (const auto& [text, back] : pairs) {
            EXPECT_GE(contrast(palette.color(P::Active, text), palette.color(P::Active, back)), 4.5) << text;
            EXPECT_GE(contrast(palette.color(P::Disabled, text), palette.color(P::Disabled, back)), 3.0)
                << text;
        }
        for (const auto role : {P::Link, P::LinkVisited, P::PlaceholderText})
            EXPECT_GE(contrast(palette.color(role), palette.color(P::Base)), 4.5) << role;
    }
}

TEST_F(QtFaceTest, PicturesOfHighlightedEntriesAreReadable) {
    const auto picture = tv::ui::namedPicture("test:ink and frame", [] {
        tv::ui::DisplayList out{{0, 0}, {32, 16}, {}, {}};
        for (const std::uint32_t color : {tv::ui::inkColor, tv::ui::frameColor}) {
            const double left = out.items.empty() ? 2 : 18;
            tv::ui::DrawItem& box = out.items.emplace_back();
            box.shape = tv::ui::DrawItem::Shape::polygon;
            box.points = {{left, 2}, {left + 12, 2}, {left + 12, 14}, {left, 14}};
            box.fill = color;
        }
        return out;
    });
    for (const auto theme : {tv::qt::Theme::light, tv::qt::Theme::dark}) {
        tv::qt::applyTheme(theme);
        ProbeDlg dialog;
        run(dialog, [&](QWidget&) {
            std::vector<tv::ui::ListItem> items;
            for (const wchar_t* text : {L"", L" "})
                items.push_back({text, 0, picture});
            dialog.combo.SetItems(std::move(items));
            dialog.combo.SetCurSel(1);
            dialog.combo.ShowDropDown();
            settle();
            QWidget* popup = QApplication::activePopupWidget();
            ASSERT_NE(popup, nullptr);
            const QImage shown = popup->grab().toImage();
            const auto has = [&](QPalette::ColorRole role, int row) {
                const QColor color = QApplication::palette().color(QPalette::Active, role);
                const int rowHeight = shown.height() / 2;
                for (int y = 3 + row * rowHeight; y < (row + 1) * rowHeight - 3; ++y)
                    for (int x = 3; x < shown.width() - 3; ++x)
                        if (shown.pixelColor(x, y) == color) return true;
                return false;
            };
            EXPECT_TRUE(has(QPalette::Text, 0) && !has(QPalette::Highlight, 0));
            EXPECT_TRUE(has(QPalette::Highlight, 1) && has(QPalette::HighlightedText, 1));
            EXPECT_TRUE(has(QPalette::Shadow, 0));
            EXPECT_FALSE(has(QPalette::Text, 1) || has(QPalette::Shadow, 1)) << "dark on dark";
        });
    }
}

TEST_F(QtFaceTest, AnOpenWindowFollowsTheTheme) {
    tv::qt::applyTheme(tv::qt::Theme::light);
    ProbeDlg dialog;
    run(dialog, [&](QWidget&) {
        const QWidget& check = *toolkit.widgetOf(dialog.check);
        const QSize before = toolkit.widgetOf(dialog.combo)->size();
        const QColor light = check.palette().color(QPalette::WindowText);
        tv::qt::applyTheme(tv::qt::Theme::dark);
        settle();
        EXPECT_GT(check.palette().color(QPalette::WindowText).lightness(), light.lightness() + 100);
        EXPECT_EQ(toolkit.widgetOf(dialog.combo)->size(), before);
    });
    tv::qt::applyTheme(tv::qt::Theme::light);
}

TEST_F(QtFaceTest, NumbersStayIndependentOfTheDesktop) {
    std::setlocale(LC_NUMERIC, ""); // as QApplication does
    const QtToolkit another;
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST_F(QtFaceTest, ALongListOpensAtOnce) {
    ProbeDlg dialog;
    auto rows = std::make_shared<CountingRows>(100000);
    dialog.list.SetModel(rows);
    QElapsedTimer clock;
    clock.start();
    run(dialog, [&](QWidget&) {
        EXPECT_LT(clock.elapsed(), 1000);
        EXPECT_LT(rows->asked, 2000);
        clock.restart();
        rows->count = 99999;
        dialog.list.RowsChanged();
        dialog.list.EnsureVisible(99998);
        QApplication::processEvents();
        EXPECT_LT(clock.elapsed(), 200);
        EXPECT_EQ(rows->highest, 99998);
        EXPECT_LT(rows->asked, 4000);
    });
}

TEST_F(QtFaceTest, TheLayoutEnlargesTheWindowWithoutTellingTheDialog) {
    ProbeDlg dialog;
    dialog.init = [&] { dialog.MoveWindow({100, 100, 180, 150}); };
    run(dialog, [&](QWidget& window) {
        EXPECT_GT(window.width(), 80);
        EXPECT_THAT(cutOffTexts(window), testing::IsEmpty());
        EXPECT_EQ(dialog.GetWindowRect().Size(), (CSize{80, 50}));
        EXPECT_EQ(window.pos(), QPoint(100, 100));
        dialog.ok.SetWindowText(std::wstring(120, L'W')); // the window grows with its texts
        settle();
        EXPECT_THAT(cutOffTexts(window), testing::IsEmpty());
        EXPECT_EQ(dialog.GetWindowRect().Size(), (CSize{80, 50}));

        dialog.size = {};
        window.resize(window.width() + 60, window.height() + 30); // as a person drags the frame
        QApplication::processEvents();
        EXPECT_EQ(dialog.size, (CSize{window.width(), window.height()}));
        window.move(40, 30);
        QApplication::processEvents();
        EXPECT_EQ(dialog.GetWindowRect().TopLeft(), (CPoint{40, 30}));
    });
}

TEST_F(QtFaceTest, LabelsLeadToTheirControlsAndNameThem) {
    ProbeDlg dialog;
    run(dialog, [&](QWidget&) {
        auto* label = qobject_cast<QLabel*>(toolkit.widgetOf(dialog.editLabel));
        auto* edit = toolkit.widgetOf(dialog.edit);
        ASSERT_TRUE(label && edit);
        EXPECT_EQ(label->buddy(), edit);
        EXPECT_EQ(edit->accessibleName(), QStringLiteral("Name"));
        dialog.editLabel.SetWindowText(L"경로(&P):");
        EXPECT_EQ(edit->accessibleName(), QStringLiteral("경로"));
        dialog.edit.SetToolTip(L"a < b & c");
        EXPECT_TRUE(edit->toolTip().contains(QStringLiteral("a &lt; b")));
        dialog.swatches.SetCurSel(1);
        EXPECT_EQ(toolkit.widgetOf(dialog.swatches)->accessibleDescription(), QStringLiteral("green"));
    });
}

TEST_F(QtFaceTest, ComposedTextArrivesWhole) {
    struct Composed : ProbeDlg {
        std::vector<bool> composing;
        void OnImeComposing(bool now) override { composing.push_back(now); }
    } dialog;
    run(dialog, [&](QWidget&) {
        QWidget* edit = toolkit.widgetOf(dialog.edit);
        QInputMethodEvent preedit(QStringLiteral("ㅎㅏ"), {});
        QApplication::sendEvent(edit, &preedit);
        EXPECT_EQ(dialog.edit.GetWindowText(), L"");
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("하"));
        QApplication::sendEvent(edit, &commit);
        EXPECT_EQ(dialog.edit.GetWindowText(), L"하");
        EXPECT_EQ(dialog.composing, (std::vector<bool>{true, false}));
    });
}

TEST_F(QtFaceTest, ABadDesignerFileLosesNothing) {
    QTemporaryDir folder;
    toolkit.addTemplatePath(folder.path());
    const auto write = [&](const char* content) {
        QFile file(folder.filePath(QStringLiteral("IDD_PROBE.ui")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    };
    const auto problemsOf = [&](const char* content) {
        write(content);
        std::vector<std::wstring> problems;
        ProbeDlg dialog;
        run(dialog, [&](QWidget&) {
            problems = toolkit.bindingProblems(dialog);
            NativeHand hand(toolkit);
            EXPECT_TRUE(hand.act(dialog.check, {})); // every control is there and works
            EXPECT_EQ(dialog.check.GetCheck(), 1);
        });
        return problems;
    };
    using testing::Contains;
    using testing::HasSubstr;
    const auto problems =
        problemsOf("<ui version=\"4.0\"><class>IDD_PROBE</class><widget class=\"QDialog\" name=\"IDD_PROBE\">"
                   "<layout class=\"QVBoxLayout\" name=\"layout\">"
                   "<item><widget class=\"QLineEdit\" name=\"IDC_CHECK\"/></item>"
                   "<item><widget class=\"QPushButton\" name=\"IDC_STRAY\"/></item>"
                   "<item><widget class=\"QPushButton\" name=\"IDOK\"/></item></layout></widget></ui>");
    EXPECT_THAT(problems, Contains(HasSubstr(L"IDC_CHECK의 클래스가 QLineEdit")));
    EXPECT_THAT(problems, Contains(HasSubstr(L"IDC_STRAY")));
    EXPECT_THAT(problems, Contains(HasSubstr(L"IDC_COMBO(QComboBox)")));
    EXPECT_THAT(problems, testing::Not(Contains(HasSubstr(L"IDOK"))));
    EXPECT_THAT(problemsOf("<ui><broken"), Contains(HasSubstr(L"IDD_PROBE.ui")));
}

TEST_F(QtFaceTest, AWindowOutOfTheWayReleasesTheOthers) {
    QWidget mainWindow;
    mainWindow.show();
    toolkit.setMainWindow(&mainWindow);
    ProbeDlg dialog;
    run(dialog, [&](QWidget& window) {
        EXPECT_TRUE(QApplication::activeModalWidget() == &window);
        dialog.ShowWindow(false);
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        dialog.ShowWindow();
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(QApplication::activeModalWidget() == &window);
    });
}

TEST_F(QtFaceTest, ADriverSleepsUntilItIsWoken) {
    struct Late : tv::ui::Driver {
        std::atomic<bool> ready{false};
        int asked = 0;
        bool step(tv::ui::Waiting& waiting) override {
            ++asked;
            if (ready && waiting.dialog) waiting.dialog->EndDialog(7);
            return ready;
        }
        void lost(tv::ui::Waiting&) override {}
    } driver;
    toolkit.setDriver(&driver);
    std::thread other([&] {
        std::this_thread::sleep_for(60ms);
        driver.ready = true;
        toolkit.wake();
    });
    ProbeDlg dialog;
    EXPECT_EQ(dialog.DoModal(), 7);
    other.join();
    EXPECT_LE(driver.asked, 5);
    toolkit.setDriver(nullptr);
}
