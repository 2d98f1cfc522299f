// What the drawing area paints, and how it is moved by keys and pointer.
#include "tests/tavocad/ScriptedWindow.h"

#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/TavoDisplay.h"
#include "tavocad/scene/SceneBuilder.h"
#include "tavocad/window/ReadableColor.h"
#include "tavocad/window/ScenePainter.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace fs = std::filesystem;
using testing::HasSubstr;
using View = ScriptedWindow;

namespace {

OdDbDatabasePtr drawingOf(std::string text) {
    std::ranges::replace(text, '|', '\n');
    return OdDbDatabase::openBytes(text).database;
}

// 200 by 100 pixels of black around the origin, ten pixels for a unit.
struct Picture {
    explicit Picture(const tv::scene::Scene& scene, bool lineweights = false)
        : image(200, 100, QImage::Format_RGB32) {
        image.fill(Qt::black);
        ScenePainter view;
        view.area = QRectF(0, 0, 200, 100);
        view.scale = 10;
        view.foreground = Qt::white;
        view.background = Qt::black;
        view.lineweights = lineweights;
        view.paint(image, scene, view.look(scene));
    }
    // Of a place in drawing units.
    QColor at(double x, double y) const {
        return image.pixelColor(static_cast<int>(100 + x * 10), static_cast<int>(50 - y * 10));
    }
    bool lit(double x, double y) const { return at(x, y).lightness() > 60; }
    // How many of the pixels of a row are lit.
    int litInRow(double y) const {
        int count = 0;
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, static_cast<int>(50 - y * 10)).lightness() > 60;
        return count;
    }
    QImage image;
};

const std::string tables =
    "0|SECTION|2|HEADER|9|$ACADVER|1|AC1015|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LTYPE|70|1|"
    "0|LTYPE|2|DASHED|70|0|3||72|65|73|2|40|4.0|49|2.0|49|-2.0|0|ENDTAB|"
    "0|TABLE|2|LAYER|70|1|0|LAYER|2|0|70|0|62|7|6|CONTINUOUS|0|ENDTAB|0|ENDSEC|"
    "0|SECTION|2|ENTITIES|";
const std::string row = "10|-9|20|0|11|9|21|0|";

} // namespace

// Dashes as long as the linetype says, lines as wide as their weight once that is asked for, areas filled with
// what lies behind shining through.
TEST(ScenePainter, PaintsDashesWeightsAndAreas) {
    const auto scene = [](const std::string& entities) {
        return tv::scene::buildScene(*drawingOf(tables + entities + "0|ENDSEC|0|EOF|"));
    };
    const Picture whole(scene("0|LINE|8|0|" + row)), dashed(scene("0|LINE|8|0|6|DASHED|" + row));
    EXPECT_NEAR(whole.litInRow(0), 180, 4);
    EXPECT_NEAR(dashed.litInRow(0), 100, 24) << "two units of line, two of gap";
    const auto heavy = scene("0|LINE|8|0|370|100|" + row);
    EXPECT_FALSE(Picture(heavy).lit(0, 0.15));
    EXPECT_TRUE(Picture(heavy, true).lit(0, 0.15));
    const auto area = [&](const std::string& more) {
        return Picture(scene("0|SOLID|8|0|" + more + "10|-5|20|-3|11|5|21|-3|12|-5|22|3|13|5|23|3|")).at(0, 0);
    };
    EXPECT_EQ(area("62|1|"), QColor(Qt::red));
    EXPECT_NEAR(area("62|1|440|33554559|").red(), 127, 2);
    EXPECT_GT(contrast(area("62|5|"), Qt::black), leastLineContrast * 0.9) << "blue, but to be seen";
}

// Points have the drawing's shape, at a size of the drawing or of the view; a linetype's texts stand in its
// gaps, two gaps in a row are one.
TEST(ScenePainter, PaintsPointShapesAndLineTexts) {
    const auto scene = [](const std::string& mode, const std::string& entities) {
        std::string text = tables;
        text.insert(text.find("0|ENDSEC"), "9|$PDMODE|70|" + mode);
        text.insert(
            text.find("0|ENDTAB"),
            "0|LTYPE|2|GAS|70|0|3||72|65|73|3|40|18|49|4|74|0|49|-6|74|2|75|0|340|0|46|2|50|0|44|-4|45|-1|"
            "9|I|49|-8|74|0|");
        return tv::scene::buildScene(*drawingOf(text + entities + "0|ENDSEC|0|EOF|"));
    };
    const std::string point = "0|POINT|8|0|10|2|20|1|";
    const Picture cross(scene("3|9|$PDSIZE|40|4|", point)), box(scene("64|9|$PDSIZE|40|-20|", point)),
        hidden(scene("1|", point)), dot(scene("0|", point));
    EXPECT_TRUE(cross.lit(3.5, 2.5) || cross.lit(3.45, 2.45));
    EXPECT_FALSE(cross.lit(2, 2));
    EXPECT_TRUE(box.lit(2, 1.95) || box.lit(2, 2.05)) << "a fifth of the view is two units";
    EXPECT_FALSE(box.lit(2, 1));
    EXPECT_TRUE(dot.lit(2, 1) || dot.lit(1.95, 1.05));
    EXPECT_EQ(hidden.litInRow(1), 0);

    const Picture gas(scene("0|", "0|LINE|8|0|6|GAS|" + row));
    EXPECT_NEAR(gas.litInRow(0), 40, 8) << "the dash and the letter";
    bool letter = false;
    for (double x = -3; x < -1.5; x += 0.1)
        letter = letter || gas.lit(x, 0.4);
    EXPECT_TRUE(letter);
    EXPECT_FALSE(gas.lit(1, 0));
}

// What lies outside of a viewport is cut off, however much the model shows.
TEST(ScenePainter, ViewportsCutTheModelOff) {
    const auto model = std::make_shared<tv::scene::Scene>(
        tv::scene::buildScene(*drawingOf(tables + "0|LINE|8|0|" + row + "0|ENDSEC|0|EOF|")));
    tv::scene::Scene sheet;
    tv::scene::ViewportPicture window;
    window.model = model;
    window.styles = model->styles;
    window.x = {0, 2}; // turned by a right angle and twice as large
    window.y = {-2, 0};
    window.origin = {5, 0};
    window.clip = {{3, -2}, {7, -2}, {7, 2}, {3, 2}};
    sheet.viewports.push_back(window);
    sheet.finish();
    const Picture picture(sheet);
    EXPECT_TRUE(picture.lit(5, 1.8) || picture.lit(4.95, 1.8));
    EXPECT_EQ(picture.litInRow(3), 0);
    EXPECT_LE(picture.litInRow(0), 2);
}

// Every move of the view by hand has a key, and what was moved can be taken back.
TEST_F(View, KeysMoveTheView) {
    auto corner = [this] { return at({0, 0}); };
    auto width = [this] { return at({view.width(), 0}).x - at({0, 0}).x; };
    OdGePoint2d start;
    double whole = 0;
    enter(QStringLiteral("open ") + quoted(drawing));
    then([&] {
        view.setFocus();
        start = corner();
        whole = width();
    });
    key(Qt::Key_Right);
    then([&] { EXPECT_NEAR(corner().x - start.x, whole / 10, whole / 1000); });
    key(Qt::Key_Left);
    key(Qt::Key_Up);
    key(Qt::Key_Down);
    then([&] {
        EXPECT_NEAR(corner().x, start.x, 1e-6);
        EXPECT_NEAR(corner().y, start.y, 1e-6);
    });
    key(Qt::Key_PageUp);
    then([&] { EXPECT_NEAR(width(), whole / 1.5, 1e-6); });
    key(Qt::Key_PageDown);
    key(Qt::Key_Plus, Qt::ControlModifier);
    then([&] { EXPECT_NEAR(width(), whole / 2, 1e-6); });
    key(Qt::Key_Home);
    then([&] {
        EXPECT_NEAR(width(), whole, 1e-6);
        // Space held, the left button pans and chooses nothing.
        const OdGePoint2d held = at({50, 50});
        QTest::keyPress(&view, Qt::Key_Space);
        QTest::mousePress(&view, Qt::LeftButton, {}, {50, 50});
        QTest::mouseMove(&view, {90, 70});
        QTest::mouseRelease(&view, Qt::LeftButton, {}, {90, 70});
        QTest::keyRelease(&view, Qt::Key_Space);
        EXPECT_NEAR(at({90, 70}).x, held.x, 1e-6);
        QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(10, 10), view.mapToGlobal(QPointF(10, 10)),
                          Qt::MiddleButton, Qt::MiddleButton, {});
        QApplication::sendEvent(&view, &twice);
        EXPECT_NEAR(corner().x, start.x, 1e-6) << "two clicks of the middle button show everything";
    });
    run();
}

// A regeneration makes the picture from the drawing, a redraw only paints what is known.
TEST_F(View, RedrawAndRegenReachThePicture) {
    enter(QStringLiteral("open ") + quoted(drawing));
    enter(QStringLiteral("zoom w 0,0 300,200"));
    QImage before, empty;
    then([&] {
        before = view.grab().toImage();
        view.setScene(std::make_shared<tv::scene::Scene>());
        empty = view.grab().toImage();
        tvedRedraw(nullptr);
    });
    then([&] {
        EXPECT_NE(empty, before);
        EXPECT_EQ(view.grab().toImage(), empty);
    });
    enter(QStringLiteral("REGEN"));
    then([&] { EXPECT_EQ(view.grab().toImage(), before); });
    run();
}

// What is selected shows also where it is no more than a dot.
TEST_F(View, SelectedDotsAreMarked) {
    enter(QStringLiteral("open ") + quoted(drawing));
    enter(QStringLiteral("zoom 0.0001x"));
    QImage before;
    then([&] { before = view.grab().toImage(); });
    enter(QStringLiteral("select all"));
    then([&] {
        const QImage after = view.grab().toImage();
        int changed = 0;
        for (int y = 0; y < after.height(); ++y)
            for (int x = 0; x < after.width(); ++x)
                changed += after.pixel(x, y) != before.pixel(x, y);
        EXPECT_GE(changed, 9);
    });
    run();
}

// A damaged drawing says so in the title, and how it can be edited all the same.
TEST_F(View, DamagedDrawingsAreReadOnly) {
    const fs::path cut = folder / "cut.dxf";
    const std::string whole = bytesOf(drawing);
    std::ofstream(cut, std::ios::binary).write(whole.data(), static_cast<std::streamsize>(whole.size() / 2));
    enter(QStringLiteral("open ") + quoted(cut));
    then([this] {
        EXPECT_THAT(window.windowTitle().toStdWString(), HasSubstr(L"cut.dxf[*] (읽기 전용)"));
        EXPECT_THAT(said(), HasSubstr(L"SAVEAS"));
    });
    enter(QStringLiteral("saveas ") + quoted(folder / "whole.dxf"));
    then([this] { EXPECT_EQ(window.windowTitle(), QStringLiteral("whole.dxf[*] - TavoCAD")); });
    run();
}
