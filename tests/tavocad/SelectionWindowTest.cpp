// Objects chosen by mouse and keys in the drawing area.
#include "tests/tavocad/ScriptedWindow.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/TavoSelection.h"
#include "tavocad/window/ReadableColor.h"

#include <QTabBar>
#include <QToolTip>

#include <algorithm>
#include <fstream>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace {

// Lines A1 from (0,0) to (100,100), A2 from (20,80) to (40,80), A3 from (60,20) to (160,20).
class SelectionWindow : public ScriptedWindow {
  protected:
    SelectionWindow() {
        std::string text = "0|SECTION|2|ENTITIES|0|LINE|5|A1|8|0|10|0|20|0|11|100|21|100|"
                           "0|LINE|5|A2|8|0|62|1|10|20|20|80|11|40|21|80|"
                           "0|LINE|5|A3|8|0|62|5|10|60|20|20|11|160|21|20|0|ENDSEC|0|EOF|";
        std::ranges::replace(text, '|', '\n');
        std::ofstream(file, std::ios::binary) << text;
        enter(QStringLiteral("open ") + quoted(file));
    }
    void click(double x, double y, Qt::KeyboardModifiers with = {}) {
        then([this, x, y, with] { QTest::mouseClick(&view, Qt::LeftButton, with, pixelAt(x, y)); });
    }
    void drag(OdGePoint2d from, OdGePoint2d to) {
        then([this, from, to] {
            const QPoint start = pixelAt(from.x, from.y), end = pixelAt(to.x, to.y);
            QTest::mousePress(&view, Qt::LeftButton, {}, start);
            QTest::mouseMove(&view, (start + end) / 2);
            QTest::mouseRelease(&view, Qt::LeftButton, {}, end);
        });
    }
    void expectSelected(const char* handles) {
        then([this, handles] {
            std::string all;
            for (const OdDbObjectId& id : session.host().selection()->ids())
                all += id.handle().ascii() + " ";
            EXPECT_EQ(all, handles);
        });
    }
    const fs::path file = folder / "lines.dxf";
};

} // namespace

// A click takes what is under the pointer, windows to the right what lies inside, windows to the left what they
// touch; with Shift it is taken out. What is selected is seen, and Escape forgets it.
TEST_F(SelectionWindow, ClicksAndWindowsChoose) {
    QImage plain;
    enter(QStringLiteral("SELECTIONPREVIEW 0"));
    then([&] { plain = view.grab().toImage(); });
    click(50, 50);
    expectSelected("A1 ");
    then([&] { EXPECT_NE(view.grab().toImage(), plain); });
    click(100, 20);
    expectSelected("A1 A3 ");
    click(10, 10, Qt::ShiftModifier);
    expectSelected("A3 ");
    key(Qt::Key_Escape);
    expectSelected("");
    then([&] { EXPECT_EQ(view.grab().toImage(), plain); });
    drag({10, 95}, {55, 70});
    expectSelected("A2 ");
    key(Qt::Key_Escape);
    drag({70, 60}, {30, 10});
    expectSelected("A1 A3 ");
    key(Qt::Key_Escape);
    // Begun with one click and ended with the next; Escape in between only drops the window.
    click(5, 50);
    click(150, 95);
    expectSelected("A2 ");
    click(5, 50);
    key(Qt::Key_Escape);
    expectSelected("A2 ");
    key(Qt::Key_A, Qt::ControlModifier);
    expectSelected("A2 A1 A3 ");
    run();
}

// Deleting is one step that one undo takes back; a command that asks for objects takes clicks until Enter.
TEST_F(SelectionWindow, DeleteErasesAndCommandsAskForObjects) {
    click(50, 50);
    key(Qt::Key_Delete);
    then([this] { EXPECT_EQ(session.document()->database()->undoName(), L"_ERASE"); });
    click(50, 50);
    expectSelected("");
    key(Qt::Key_Escape);
    key(Qt::Key_Z, Qt::ControlModifier);
    then([this] { EXPECT_TRUE(session.document()->database()->bytes() == bytesOf(file)); });
    enter(QStringLiteral("ERASE"));
    then([this] { EXPECT_EQ(prompt(), QStringLiteral("객체 선택:")); });
    click(30, 80);
    enter(QStringLiteral("c 90,30 110,10"));
    expectSelected("A2 A3 ");
    then([this] { QTest::mouseClick(&view, Qt::RightButton, {}, {5, 5}); });
    then([this] {
        EXPECT_EQ(prompt(), QStringLiteral("명령:"));
        EXPECT_THAT(said(), HasSubstr(L"객체 2개"));
    });
    enter(QStringLiteral("ERASE"));
    click(50, 50);
    key(Qt::Key_Escape);
    expectSelected("");
    then([this] { EXPECT_EQ(prompt(), QStringLiteral("명령:")); });
    run();
}

TEST_F(SelectionWindow, ObjectsLightUpUnderThePointer) {
    QImage plain;
    then([&] {
        QTest::mouseMove(&view, pixelAt(10, 60));
        QTest::qWait(40);
        plain = view.grab().toImage();
        QTest::mouseMove(&view, pixelAt(50, 50));
        EXPECT_TRUE(QTest::qWaitFor([&] { return view.grab().toImage() != plain; }));
        const QPoint at = pixelAt(50, 50);
        QHelpEvent help(QEvent::ToolTip, at, view.mapToGlobal(at));
        QApplication::sendEvent(&view, &help);
        EXPECT_THAT(QToolTip::text().toStdWString(), HasSubstr(L"LINE"));
        QTest::mouseMove(&view, pixelAt(10, 60));
        EXPECT_TRUE(QTest::qWaitFor([&] { return view.grab().toImage() == plain; }));
    });
    enter(QStringLiteral("SELECTIONPREVIEW 0"));
    then([&] {
        plain = view.grab().toImage();
        QTest::mouseMove(&view, pixelAt(50, 50));
        QTest::qWait(40);
        EXPECT_EQ(view.grab().toImage(), plain);
    });
    run();
}

TEST_F(SelectionWindow, ZoomsByWindowFactorAndBack) {
    OdGePoint2d corner, other;
    auto size = [this] {
        const OdGePoint2d a = at({0, 0}), b = at({view.width(), view.height()});
        return OdGePoint2d{b.x - a.x, a.y - b.y};
    };
    then([&] { corner = at({0, 0}); });
    enter(QStringLiteral("zoom w 20,20 30,25"));
    then([&] {
        EXPECT_NEAR(at({view.width() / 2, view.height() / 2}).x, 25, size().x / view.width());
        EXPECT_TRUE(std::abs(size().x - 10) < 1e-6 || std::abs(size().y - 5) < 1e-6) << "it fills the view";
        other = size();
    });
    enter(QStringLiteral("z 2x"));
    then([&] { EXPECT_NEAR(size().x, other.x / 2, 1e-9); });
    enter(QStringLiteral("z p"));
    then([&] { EXPECT_NEAR(size().x, other.x, 1e-9); });
    enter(QStringLiteral("z p"));
    then([&] { EXPECT_EQ(at({0, 0}), corner); });
    enter(QStringLiteral("z sideways"));
    then([&] { EXPECT_THAT(said(), HasSubstr(L"SIDEWAYS")); });
    run();
}

// A tab shows its layout and makes it the current one, which undo takes back; while a command runs it stays.
TEST_F(SelectionWindow, TabsShowLayouts) {
    enter(QStringLiteral("NEW"));
    auto* tabs = window.findChild<QTabBar*>();
    auto choose = [this, tabs](int tab) {
        then([tabs, tab] { QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(tab).center()); });
    };
    auto expectShown = [this, tabs](int tab) {
        then([this, tabs, tab] {
            EXPECT_EQ(tabs->currentIndex(), tab);
            EXPECT_EQ(variable(L"TILEMODE"), tab == 0 ? L"1" : L"0");
        });
    };
    then([tabs] {
        ASSERT_GE(tabs->count(), 2);
        EXPECT_EQ(tabs->tabText(0), QStringLiteral("모형"));
    });
    choose(1);
    expectShown(1);
    key(Qt::Key_Z, Qt::ControlModifier);
    expectShown(0);
    enter(QStringLiteral("ERASE"));
    choose(1);
    expectShown(0);
    key(Qt::Key_Escape);
    choose(1);
    expectShown(1);
    enter(QStringLiteral("layout nowhere"));
    then([this] { EXPECT_THAT(said(), HasSubstr(L"nowhere")); });
    // In any theme the tab of what is shown stands out.
    for (const ThemeChoice theme : {ThemeChoice::dark, ThemeChoice::light})
        then([this, tabs, theme] {
            window.setTheme(theme);
            const QImage picture = tabs->grab().toImage();
            const auto background = [&](int tab) {
                return picture.pixelColor(tabs->tabRect(tab).left() + 4, tabs->tabRect(tab).center().y());
            };
            EXPECT_GE(contrast(background(1), background(0)), 1.8);
            EXPECT_GE(
                contrast(background(1), tabs->palette().color(QPalette::Active, QPalette::HighlightedText)),
                3.0);
        });
    run();
}

// Any colour can be told from any background of the two themes, and stays the colour it is.
TEST(ReadableColor, StandsOutAndKeepsItsHue) {
    for (const QColor& background : {QColor(0x1E, 0x1E, 0x1E), QColor(0x39, 0x3A, 0x3F), QColor(Qt::white)})
        for (const QColor& color : {QColor(Qt::blue), QColor(Qt::yellow), QColor(Qt::red), QColor(Qt::cyan),
                                    QColor(0x33, 0x33, 0x33), QColor(0xF0, 0xF0, 0xF0), QColor(0, 0, 0x80)}) {
            const QColor shown = readableOn(color, background);
            EXPECT_GE(contrast(shown, background), leastLineContrast * 0.99) << color.name().toStdString();
            if (contrast(color, background) >= leastLineContrast) {
                EXPECT_EQ(shown, color);
            } else if (color.hslHue() >= 0) {
                EXPECT_NEAR(shown.hslHue(), color.hslHue(), 2) << color.name().toStdString();
            }
        }
}
