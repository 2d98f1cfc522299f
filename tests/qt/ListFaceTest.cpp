// Lists with columns under the mouse, and what is painted of them.
#include "platform/toolkit/Pictures.h"
#include "qt/controls/RowDrag.h"
#include "tests/conformance/ProbeDlg.h"
#include "tests/support/NativeHand.h"
#include "tests/support/QtApp.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QTest>
#include <QToolTip>
#include <QWindow>

#include <gmock/gmock.h>

using testing::ElementsAre;
using tv::ui::RowSet;

namespace {

class ListFace : public testing::Test {
  protected:
    ListFace() {
        qtApp();
        toolkit = std::make_unique<QtToolkit>();
        toolkit->addTemplatePath(QStringLiteral(KX_SOURCE_DIR "/tests/conformance/ui"));
        dlg.list.SetColumns({{L"First", 50}, {L"Second", 40}, {L"Third", 40}});
        dlg.MoveWindow({0, 0, 1000, 760}); // room for all columns
    }

    void run(const std::function<void()>& does) {
        tv::ui::SimulatedUser user(*toolkit, [](const std::string& m) { ADD_FAILURE() << m; });
        user.expect<ProbeDlg>([&](tv::ui::WindowUser&) {
            dlg.MoveWindow({0, 0, 1000, 760});
            for (int i = 0; i < 4; ++i)
                QApplication::processEvents();
            view = static_cast<QTableView*>(toolkit->widgetOf(dlg.list));
            does();
            dlg.EndDialog(IDCANCEL);
        });
        dlg.DoModal();
    }

    QPoint at(int row, int column) { return view->visualRect(view->model()->index(row, column)).center(); }
    void mouse(QEvent::Type type, QWidget& part, QPoint point, Qt::KeyboardModifiers with = {}) {
        QWindow* window = part.window()->windowHandle();
        const QPoint there = part.mapTo(part.window(), point);
        switch (type) {
        case QEvent::MouseButtonPress:
            QTest::mousePress(window, Qt::LeftButton, with, there);
            break;
        case QEvent::MouseMove: {
            const QPoint global = part.mapToGlobal(point);
            QMouseEvent event(QEvent::MouseMove, point, global, Qt::NoButton, Qt::LeftButton, with);
            QApplication::sendEvent(&part, &event);
            break;
        }
        default:
            QTest::mouseRelease(window, Qt::LeftButton, with, there);
        }
    }
    void drag(QWidget& part, std::initializer_list<QPoint> way) {
        mouse(QEvent::MouseButtonPress, part, *way.begin());
        for (const QPoint point : way)
            mouse(QEvent::MouseMove, part, point);
        mouse(QEvent::MouseButtonRelease, part, *(way.end() - 1));
    }

    ProbeModule module;
    ProbeDlg dlg;
    std::unique_ptr<QtToolkit> toolkit;
    QTableView* view = nullptr;
};

} // namespace

TEST_F(ListFace, RowsAreSelectedByMouse) {
    run([&] {
        QWidget& cells = *view->viewport();
        drag(cells, {at(1, 0), at(2, 0), at(4, 0)});
        EXPECT_EQ(dlg.list.selection(), RowSet::range(1, 4));
        EXPECT_EQ(dlg.fired["cell"], 0) << "no click";
        const auto press = [&](int row, Qt::KeyboardModifiers with) {
            mouse(QEvent::MouseButtonPress, cells, at(row, 0), with);
            mouse(QEvent::MouseButtonRelease, cells, at(row, 0), with);
        };
        press(2, Qt::ControlModifier);
        EXPECT_EQ(dlg.list.selection(), (RowSet{1, 3, 4}));
        press(6, Qt::ShiftModifier | Qt::ControlModifier);
        EXPECT_EQ(dlg.list.selection(), (RowSet{1, 2, 3, 4, 5, 6}));
        press(5, Qt::ShiftModifier);
        EXPECT_EQ(dlg.list.selection(), RowSet::range(2, 5));
        press(5, {});
        EXPECT_EQ(dlg.list.selection(), RowSet{5});
        EXPECT_EQ(dlg.fired["cell"], 1);
        mouse(QEvent::MouseButtonPress, cells, at(5, 0));
        mouse(QEvent::MouseMove, cells, QPoint(5, cells.height() + 30));
        EXPECT_EQ(dlg.list.focusRow(), dlg.list.topRow() + dlg.list.rowsInView() - 1) << "scrolls on below";
        EXPECT_GT(dlg.list.topRow(), 0);
        mouse(QEvent::MouseButtonRelease, cells, QPoint(5, cells.height() + 30));

        // A second click opens the editor, unless it was the first half of a double click.
        dlg.list.ScrollTo(0);
        press(3, {});
        for (int i = 0; i < 2; ++i) {
            mouse(QEvent::MouseButtonPress, cells, at(3, 1));
            mouse(QEvent::MouseButtonRelease, cells, at(3, 1));
            EXPECT_EQ(dlg.list.editor(), nullptr);
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return dlg.list.editor() != nullptr; }, 2000));
        EXPECT_TRUE(view->viewport()->findChild<QLineEdit*>()->hasFocus());
        QTest::mouseDClick(cells.window()->windowHandle(), Qt::LeftButton, {},
                           cells.mapTo(cells.window(), at(1, 1)));
        EXPECT_EQ(dlg.list.editor(), nullptr);
        EXPECT_EQ(dlg.list.selection(), RowSet{1});
    });
}

TEST_F(ListFace, TitlesAreDraggedAndHaveAMenu) {
    run([&] {
        QHeaderView& header = *view->horizontalHeader();
        QWidget& titles = *header.viewport();
        const auto rightEdge = [&](int column) {
            return QPoint(header.sectionViewportPosition(column) + header.sectionSize(column) - 1, 8);
        };
        const auto middle = [&](int column) {
            return QPoint(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, 8);
        };
        const int before = dlg.list.columnWidth(0);
        drag(titles, {rightEdge(0), rightEdge(0) + QPoint(15, 0), rightEdge(0) + QPoint(30, 0)});
        EXPECT_GT(dlg.list.columnWidth(0), before);
        EXPECT_EQ(header.sectionSize(0), dlg.list.columnWidth(0));
        EXPECT_EQ(header.length(), std::max(view->viewport()->width(), dlg.list.layout().total(0)));
        drag(titles, {middle(0), middle(0) + QPoint(20, 0), middle(2), middle(2) + QPoint(15, 0)});
        EXPECT_THAT(dlg.list.layout().order(), ElementsAre(1, 2, 0));
        EXPECT_EQ(header.visualIndex(0), 2);
        EXPECT_EQ(view->visualRect(view->model()->index(0, 0)).left(), dlg.list.cellRect(0, 0).left);

        emit header.customContextMenuRequested(middle(1));
        auto* menu = toolkit->windowOf(dlg)->findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        QAction* second = nullptr;
        for (QAction* action : menu->actions())
            if (action->text() == QLatin1String("Second")) second = action;
        ASSERT_NE(second, nullptr);
        EXPECT_TRUE(second->isChecked());
        second->trigger();
        EXPECT_TRUE(view->isColumnHidden(1));
        EXPECT_THAT(dlg.list.layout().visible(), ElementsAre(2, 0));
        EXPECT_EQ(toolkit->menu(), nullptr);
    });
}

TEST_F(ListFace, SelectedRowsArePaintedAsTheListSays) {
    run([&] {
        dlg.list.SetModel(std::make_shared<CountingRows>(3));
        dlg.list.SetSelection({1});
        dlg.list.SetFocus();
        dlg.list.SetFocusCell(0, 0);
        const auto marked = [&](int column) {
            const QRect cell = view->visualRect(view->model()->index(1, column));
            const QImage picture = view->viewport()->grab().toImage();
            const auto ratio = picture.devicePixelRatio();
            const QColor shown = picture.pixelColor(QPoint(cell.right() - 2, cell.top() + 3) * ratio);
            return shown != view->palette().color(QPalette::Base);
        };
        EXPECT_TRUE(marked(0) && marked(1) && marked(2));
        dlg.list.SetRowHighlight(tv::ui::RowHighlight::firstColumn);
        EXPECT_TRUE(marked(0) && !marked(1) && !marked(2));
        dlg.list.SetRowHighlight(tv::ui::RowHighlight::whileFocused);
        EXPECT_TRUE(marked(0) && marked(2));
        dlg.edit.SetFocus();
        EXPECT_FALSE(marked(0) || marked(2));
    });
}

TEST_F(ListFace, TheCellTheKeyboardIsAtShowsOnASelectedRow) {
    auto rows = std::make_shared<tv::ui::TextRows>();
    rows->rows = {{{L"1"}, {L"2"}, {L"3"}}};
    run([&] {
        dlg.list.SetModel(rows);
        dlg.list.SetSelection({0});
        dlg.list.SetFocus();
        dlg.list.SetFocusCell(0, 1);
        const auto framed = [&](int column) {
            const QRect cell = view->visualRect(view->model()->index(0, column));
            const QImage picture = view->viewport()->grab().toImage();
            return picture.pixelColor(cell.topLeft() * picture.devicePixelRatio()) ==
                   view->palette().color(QPalette::HighlightedText);
        };
        EXPECT_FALSE(framed(0) || framed(1)) << "rows without editors are gone through as a whole";
        dlg.list.onEdit = [](int, int, const std::wstring&) { return true; };
        rows->rows[0][2].editable = true;
        dlg.list.RowsChanged();
        EXPECT_TRUE(framed(1));
        EXPECT_FALSE(framed(0) || framed(2));
    });
}

TEST_F(ListFace, PicturesAloneAreCentredAndSayWhatTheyShow) {
    auto rows = std::make_shared<tv::ui::TextRows>();
    tv::ui::ListCell lamp{L"On"}, both{L"Both"};
    lamp.picture = both.picture = tv::ui::colorPicture(0x00ff00);
    lamp.pictureOnly = true;
    rows->rows = {{lamp, both, {L"cut off in any case"}}};
    rows->rows[0][1].hint = L"a & <b>";
    run([&] {
        dlg.list.SetColumns({{L"First", 100}, {L"Second", 100}, {L"Third", 40}});
        auto columns = dlg.list.columns();
        columns[0].align = tv::ui::ListColumn::Align::center;
        columns[0].hint = L"the first";
        columns[2].title = L"wider than its column is";
        dlg.list.SetColumns(columns);
        ASSERT_TRUE(dlg.list.userResizeColumn(2, 40));
        dlg.list.SetModel(rows);
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
        const auto index = [&](int column) { return view->model()->index(0, column); };
        EXPECT_EQ(index(0).data(Qt::DisplayRole).toString(), QString());
        EXPECT_EQ(index(0).data(Qt::AccessibleTextRole).toString(), QLatin1String("On"));
        EXPECT_EQ(index(1).data(Qt::AccessibleDescriptionRole).toString(), QLatin1String("a & <b>"));
        const auto green = [&](QPoint point) {
            const QImage picture = view->viewport()->grab().toImage();
            return picture.pixelColor(point * picture.devicePixelRatio()) == QColor(0, 255, 0);
        };
        EXPECT_TRUE(green(at(0, 0)));
        EXPECT_FALSE(green(at(0, 0) - QPoint(20, 0)));
        EXPECT_FALSE(green(at(0, 1))) << "before its text";
        const auto tip = [&](int column) {
            QToolTip::hideText();
            QHelpEvent help(QEvent::ToolTip, at(0, column), view->viewport()->mapToGlobal(at(0, column)));
            QApplication::sendEvent(view->viewport(), &help);
            return QToolTip::text();
        };
        EXPECT_EQ(tip(0), QLatin1String("<span>On</span>"));
        EXPECT_EQ(tip(1), QLatin1String("<span>a &amp; &lt;b&gt;</span>"));
        const auto title = [&](int column) {
            return view->model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
        };
        EXPECT_EQ(title(0), QLatin1String("<span>the first</span>"));
        EXPECT_EQ(title(1), QString());
        EXPECT_EQ(title(2), QLatin1String("<span>wider than its column is</span>"));
    });
}

TEST_F(ListFace, SelectedRowsAreDraggedOutAndOthersSwept) {
    int begun = 0;
    dlg.list.onBeginDrag = [&] { return ++begun > 0; };
    run([&] {
        int dragged = 0;
        tv::qt::drag::setWay([&](const QMimeData& data) {
            EXPECT_TRUE(data.hasFormat(tv::qt::drag::format()));
            EXPECT_EQ(tv::qt::drag::source(), &dlg.list);
            ++dragged;
        });
        QWidget& cells = *view->viewport();
        drag(cells, {at(1, 0), at(3, 0)});
        EXPECT_EQ(dlg.list.selection(), RowSet::range(1, 3)) << "what is not selected yet is selected";
        drag(cells, {at(2, 0), at(2, 0) + QPoint(2, 0)});
        EXPECT_EQ(begun, 0) << "a trembling hand";
        EXPECT_EQ(dlg.list.selection(), RowSet{2});
        drag(cells, {at(1, 0), at(3, 0)});
        drag(cells, {at(2, 0), at(6, 0)});
        EXPECT_EQ(begun, 1);
        EXPECT_EQ(dragged, 1);
        EXPECT_EQ(dlg.list.selection(), RowSet::range(1, 3));
        EXPECT_EQ(tv::qt::drag::source(), nullptr);
        tv::qt::drag::setWay({});
    });
}

TEST_F(ListFace, DoubleClicksTakeTheirFirstHalfBack) {
    std::vector<std::string> told;
    dlg.list.onClick = [&](int, int) { told.emplace_back("click"); };
    dlg.list.onTakeBack = [&](int, int) { told.emplace_back("back"); };
    dlg.list.onDoubleClick = [&](int, int) { told.emplace_back("double"); };
    run([&] {
        QWidget& cells = *view->viewport();
        QTest::mouseDClick(cells.window()->windowHandle(), Qt::LeftButton, {},
                           cells.mapTo(cells.window(), at(1, 0)));
        EXPECT_THAT(told, ElementsAre("click", "back", "double"));
    });
}
