// The whole layer manager over a large table: opened beside every record read once, ten thousand frozen beside
// the same written without it, a letter typed into its search box beside a pass over the names. With the Qt
// face also opened and painted beside a bare table of as many rows. Prints the ratios and fails when one is
// above its limit. Usage: bench_layer_manager [layers]

#include "bench/BigDrawing.h"
#include "bench/Report.h"
#include "kxgui/layers/LayerDlg.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#ifdef BENCH_QT
#include "bench/BareTable.h"
#include "qt/QtToolkit.h"

#include <QApplication>
#include <QTableView>
#endif

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>

using tv::ui::UserAction;

namespace {

constexpr int rounds = 7; // in turns, the best of each
constexpr int toggled = 10'000;
constexpr int rowsInView = 30;
#ifdef BENCH_QT
constexpr int columnsShown = 13; // while no viewport is active
#endif

volatile std::size_t g_result; // something the optimiser can't see through

void best(double& time, const std::function<void()>& work) {
    time = std::min(time, bench::processorSeconds(work));
}

CLayerListCtrl& gridOf(CLayerDlg& dialog) {
    return static_cast<CLayerListCtrl&>(*dialog.GetDlgItem("IDC_LAYER_LIST"));
}

void measureOpening(bench::Report& report, OdDbDatabase& database) {
    double reading = 1e9, opening = 1e9;
    for (int i = 0; i < rounds; ++i) {
        best(reading, [&] {
            const OdDbObjectId current = kx::layers::currentLayer(database);
            database.layers()->forEach(
                [&](OdDbObjectId id) { g_result = kx::layers::readLayer(id, current).name.getLength(); });
        });
        best(opening, [&] {
            CLayerDlg dialog(&database, nullptr);
            dialog.Create();
            const CLayerListCtrl& grid = gridOf(dialog);
            for (int row = 0; row < std::min(rowsInView, grid.GetItemCount()); ++row)
                for (int column = 0; column < kLayerColumns; ++column)
                    g_result = grid.cell(row, column).text.size();
            dialog.DestroyWindow();
        });
    }
    std::printf("opened in %.2f ms; every record read in %.2f ms\n", opening * 1e3, reading * 1e3);
    report.ratio("the manager opened / every record read once", opening / reading, 1.5);
}

void measureToggling(bench::Report& report, OdDbDatabase& database) {
    CLayerDlg dialog(&database, nullptr);
    dialog.Create();
    CLayerListCtrl& grid = gridOf(dialog);
    // Not the current one, which can't be frozen.
    grid.SetSelection(tv::ui::RowSet::range(1, toggled));
    UserAction click;
    click.kind = UserAction::Kind::cell;
    click.row = 1;
    click.column = static_cast<int>(LayerColumn::freeze);
    std::vector<OdDbObjectId> layers;
    for (int row = 1; row <= toggled; ++row)
        layers.push_back(grid.rows()->layerAt(row));

    double bare = 1e9, ours = 1e9;
    for (int i = 0; i < rounds; ++i) {
        const bool freeze = i % 2 == 0;
        best(ours, [&] {
            if (!grid.perform(click)) std::abort();
        });
        if (grid.rows()->row(toggled).frozen != freeze) std::abort();
        database.undo();
        dialog.settle();
        best(bare, [&] {
            {
                const OdDbUndoScope step(database, L"_LAYER");
                for (const OdDbObjectId layer : layers)
                    layer.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(freeze);
            }
            dialog.settle();
        });
    }
    std::printf("%d layers frozen or thawed in %.1f ms; written without the manager in %.1f ms\n", toggled,
                ours * 1e3, bare * 1e3);
    report.ratio("ten thousand toggled / written in one step", ours / bare, 3);
    while (database.undo()) {
    }
}

void measureSearch(bench::Report& report, OdDbDatabase& database, tv::ui::HeadlessToolkit& toolkit) {
    CLayerDlg dialog(&database, nullptr);
    dialog.Create();
    toolkit.advance(std::chrono::seconds(1)); // a person looks before typing
    std::vector<std::wstring> names;
    database.layers()->forEach(
        [&](OdDbObjectId id) { names.push_back(tv::text::foldCase(database.layers()->nameOf(id).view())); });
    auto& search = static_cast<CEdit&>(*dialog.GetDlgItem("IDC_LAYER_SEARCH"));
    const auto look = [&](const wchar_t* text) {
        std::size_t found = 0;
        for (const std::wstring& name : names)
            found += name.find(text) != std::wstring::npos;
        g_result = found;
    };
    double first = 1e9, typed = 1e9, pass = 1e9, longer = 1e9;
    for (int i = 0; i < rounds; ++i) {
        best(pass, [&] { look(L"er 1"); });
        best(longer, [&] { look(L"er 12"); });
        best(first, [&] { (void)search.userType(L"er 1"); });
        best(typed, [&] { (void)search.userType(L"er 12"); });
        (void)search.userType(L"");
    }
    std::printf("text typed in %.2f ms, a letter more in %.2f ms; passes over the names in %.2f and %.2f ms\n",
                first * 1e3, typed * 1e3, pass * 1e3, longer * 1e3);
    report.ratio("the first text typed / a pass over the names", first / pass, 2);
    report.ratio("a letter typed in the manager / a pass over the names", typed / longer, 2);
}

#ifdef BENCH_QT
// Windows stay up between the rounds on both sides: what a window of its own costs has nothing to do with rows.
void measureWindow(bench::Report& report, const QtToolkit& toolkit, OdDbDatabase& database, int layers) {
    double ours = 1e9, bare = 1e9;
    CLayerDlg dialog(&database, nullptr);
    dialog.Create();
    auto& grid = *qobject_cast<QTableView*>(toolkit.widgetOf(gridOf(dialog)));
    QTableView view;
    view.resize(grid.size());
    view.show();
    for (int i = 0; i < rounds; ++i) {
        QApplication::processEvents();
        best(bare, [&] { bench::showBareTable(view, layers, columnsShown); });
        QApplication::processEvents();
        best(ours, [&] {
            dialog.OnReInit();
            QApplication::processEvents();
            g_result = static_cast<std::size_t>(grid.grab().width());
        });
    }
    std::printf("filled and painted in %.1f ms, a bare table of as many rows in %.1f ms\n", ours * 1e3,
                bare * 1e3);
    report.ratio("the manager filled and painted / a bare table", ours / bare, 3);
    dialog.DestroyWindow();
}
#endif

} // namespace

int main(int argc, char** argv) {
    bench::Report report;
    const std::size_t layers = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 100'000;
    VORD_MSGFunction::SetCurrentLanguageId(1033);
    const OdDbDatabasePtr database = OdDbDatabase::openBytes(bench::bigDrawing(0, layers)).database;
    if (!database || layers <= toggled) std::abort();
    {
        tv::host::EmbeddedHost host;
        tv::ui::HeadlessToolkit toolkit;
        measureOpening(report, *database);
        measureToggling(report, *database);
        measureSearch(report, *database, toolkit);
    }
#ifdef BENCH_QT
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    tv::host::EmbeddedHost host;
    QtToolkit toolkit;
    measureWindow(report, toolkit, *database, static_cast<int>(layers));
#endif
    return report.exitCode();
}
