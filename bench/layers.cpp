// The grid of layers over a large table, beside the least each thing could cost: opening it beside reading
// every record once, sorting names beside ICU's keys for them made and sorted, a key typed into the search box
// beside looking for that text in all names, one layer that changed beside all of them, and the bytes a row
// takes. With the Qt face also the time until the grid is painted, beside a bare table of as many rows. Prints
// the ratios and fails when one is above its limit. Usage: bench_layers [layers]

#include "bench/Report.h"
#include "kxgui/layers/LayerListCtrl.h"
#include "kxgui/layers/LayerRecord.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/MessageManager.h"
#include "platform/text/Unicode.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#ifdef BENCH_QT
#include "bench/BareTable.h"
#include "qt/QtToolkit.h"

#include <QApplication>
#include <QFile>
#include <QTableView>
#include <QTemporaryDir>
#endif

#include <unicode/coll.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <random>
#include <string>
#include <vector>

using kx::layers::LayerRows;

namespace {

constexpr int rounds = 7; // in turns, the best of each
constexpr int rowsInView = 30;
#ifdef BENCH_QT
constexpr int columnsShown = 13; // while no viewport is active
#endif
constexpr int nameColumn = static_cast<int>(LayerColumn::name);

double g_reading = 1e9;        // every record once
volatile std::size_t g_result; // something the optimiser can't see through

// A drawing with layers as offices name them, in no order.
std::string manyLayers(std::size_t layers) {
    static constexpr const char* words[] = {"A-WALL-", "A-DOOR-",     "Wall ext ", "배관-",
                                            "S_BEAM",  "x-ref|Layer", "Ось "};
    std::mt19937 random(7);
    std::string out = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n9\n$HANDSEED\n5\nFFFFFFF\n0\nENDSEC\n"
                      "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n5\n2\n100\nAcDbSymbolTable\n70\n0\n";
    for (std::size_t i = 0; i < layers; ++i) {
        char tags[256];
        std::snprintf(tags, sizeof tags,
                      "0\nLAYER\n5\n%zX\n330\n2\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n2\n%s%"
                      "zu\n70\n%d\n"
                      "62\n%d\n6\nContinuous\n370\n-3\n390\nF\n",
                      i + 0x100, words[random() % std::size(words)], (i * 7919) % layers,
                      random() % 8 == 0 ? 4 : 0, 1 + static_cast<int>(random() % 255));
        out += tags;
    }
    return out + "0\nENDTAB\n0\nENDSEC\n0\nEOF\n";
}

void best(double& time, const std::function<void()>& work) {
    time = std::min(time, bench::processorSeconds(work));
}

// As a face paints them.
void paintRows(const LayerRows& rows) {
    for (int row = 0; row < std::min(rowsInView, rows.rowCount()); ++row)
        for (int column = 0; column < kLayerColumns; ++column)
            g_result = rows.cell(row, column).text.size();
}

void measureOpening(bench::Report& report, OdDbDatabase& database) {
    double opening = 1e9;
    for (int i = 0; i < rounds; ++i) {
        best(g_reading, [&] {
            const OdDbObjectId current = kx::layers::currentLayer(database);
            database.layers()->forEach(
                [&](OdDbObjectId id) { g_result = kx::layers::readLayer(id, current).name.getLength(); });
        });
        best(opening, [&] {
            LayerRows rows;
            rows.setDatabase(&database);
            paintRows(rows);
        });
    }
    std::printf("opened in %.2f ms; every record read in %.2f ms\n", opening * 1e3, g_reading * 1e3);
    report.ratio("the grid opened / every record read once", opening / g_reading, 1.5);
}

void measureSorting(bench::Report& report, OdDbDatabase& database) {
    LayerRows rows;
    rows.setDatabase(&database);
    std::vector<icu::UnicodeString> names;
    for (int row = 0; row < rows.rowCount(); ++row) {
        const std::wstring name = rows.text(row, nameColumn);
        names.push_back(icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(name.data()),
                                                      static_cast<int32_t>(name.size())));
    }
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale("en"), status));
    if (!collator) std::abort();
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);

    double bare = 1e9, ours = 1e9, states = 1e9;
    for (int i = 0; i < rounds; ++i) {
        best(bare, [&] {
            std::vector<std::string> keys;
            keys.reserve(names.size());
            std::string key(1024, '\0');
            for (const icu::UnicodeString& name : names) {
                const int32_t size = collator->getSortKey(name, reinterpret_cast<uint8_t*>(key.data()),
                                                          static_cast<int32_t>(key.size()));
                keys.emplace_back(key.data(), static_cast<std::size_t>(size));
            }
            std::vector<int> order(names.size());
            std::iota(order.begin(), order.end(), 0);
            std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
                return keys[static_cast<std::size_t>(a)] < keys[static_cast<std::size_t>(b)];
            });
            g_result = static_cast<std::size_t>(order.front());
        });
        rows.resetSort();
        best(ours, [&] { rows.sort(nameColumn, true); });
        best(states, [&] { rows.sort(static_cast<int>(LayerColumn::color), true); });
    }
    std::printf("sorted by names in %.1f ms, %.1f ms by ICU alone; by colours in %.1f ms\n", ours * 1e3,
                bare * 1e3, states * 1e3);
    report.ratio("sorting by names / ICU's keys made and sorted", ours / bare, 1.5);
    report.ratio("sorting by colours / every record read once", states / g_reading, 1.5);
}

void measureSearch(bench::Report& report, OdDbDatabase& database) {
    LayerRows rows;
    rows.setDatabase(&database);
    std::vector<std::wstring> names;
    for (int row = 0; row < rows.rowCount(); ++row)
        names.push_back(tv::text::foldCase(rows.text(row, nameColumn)));
    double first = 1e9, typed = 1e9, back = 1e9, pass = 1e9;
    for (int i = 0; i < rounds; ++i) {
        best(pass, [&] {
            std::size_t found = 0;
            for (const std::wstring& name : names)
                found += name.find(L"-12") != std::wstring::npos;
            g_result = found;
        });
        rows.refresh();
        best(first, [&] { rows.setSearch(L"-1"); });
        best(typed, [&] { rows.setSearch(L"-12"); });
        best(back, [&] { rows.setSearch(L"-1"); });
        rows.setSearch({});
    }
    std::printf(
        "first search %.2f ms, a letter more %.2f ms, one less %.2f ms; a pass over the names %.2f ms\n",
        first * 1e3, typed * 1e3, back * 1e3, pass * 1e3);
    report.ratio("a letter typed / a pass over the names", typed / pass, 2);
    report.ratio("a letter taken back / a pass over the names", back / pass, 2);
}

void measureMemory(bench::Report& report, OdDbDatabase& database) {
    LayerRows rows;
    rows.setDatabase(&database);
    rows.setFilter([](const T_LAYER_DATA&) { return true; });
    rows.setSearch(L"a");
    rows.sort(nameColumn, true);
    for (int row = 0; row < rows.rowCount(); ++row)
        g_result = static_cast<std::size_t>(rows.rowOf(rows.identity(row)));
    report.ratio("bytes a row, searched and sorted",
                 static_cast<double>(rows.memory()) / static_cast<double>(rows.tableCount()), 64);
}

void measureChange(bench::Report& report, OdDbDatabase& database) {
    LayerRows rows;
    rows.setDatabase(&database);
    rows.setFilter([](const T_LAYER_DATA& layer) { return !layer.locked; });
    rows.sort(nameColumn, false);
    const OdDbObjectId layer = rows.layerAt(rows.rowCount() / 2);
    double one = 1e9, all = 1e9;
    for (int i = 0; i < rounds; ++i) {
        layer.open<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsFrozen(i % 2 == 0);
        best(one, [&] {
            for (int again = 0; again < 100; ++again)
                g_result = static_cast<std::size_t>(rows.layerChanged(layer).row);
        });
        best(all, [&] { rows.refresh(); });
    }
    std::printf("one layer changed %.4f ms, all of them read again %.1f ms\n", one * 10, all * 1e3);
    report.ratio("a hundred times one layer / all layers again", one / all, 0.1);
}

#ifdef BENCH_QT
constexpr unsigned gridTemplate = 9402;
constexpr tv::ui::DialogTemplate templates[] = {{gridTemplate, "IDD_BENCH_GRID", {900, 600}, false}};

constexpr char window[] = R"(<ui version="4.0"><widget class="QDialog" name="IDD_BENCH_GRID">
 <layout class="QVBoxLayout" name="layout"><item><widget class="QTableView" name="IDC_GRID"/></item></layout>
</widget></ui>)";

struct GridDlg : CDialog {
    GridDlg() : CDialog(gridTemplate, nullptr) {}
    CLayerListCtrl list{*this, "IDC_GRID"};
};

void measureWindow(bench::Report& report, const QtToolkit& toolkit, OdDbDatabase& database, int layers) {
    double ours = 1e9, bare = 1e9;
    GridDlg dialog;
    const auto rows = std::make_shared<LayerRows>();
    dialog.list.SetRows(rows);
    dialog.Create();
    auto& grid = *qobject_cast<QTableView*>(toolkit.widgetOf(dialog.list));
    QTableView view;
    view.resize(grid.size());
    view.show();
    for (int i = 0; i < rounds; ++i) {
        QApplication::processEvents();
        best(bare, [&] { bench::showBareTable(view, layers, columnsShown); });
        QApplication::processEvents();
        best(ours, [&] {
            dialog.list.UpdateRows([&](LayerRows& all) { all.setDatabase(&database); });
            QApplication::processEvents();
            g_result = static_cast<std::size_t>(grid.grab().width());
        });
        dialog.list.UpdateRows([&](LayerRows& all) { all.setDatabase(nullptr); });
    }
    std::printf("the grid filled and painted %.1f ms, a bare table of as many rows %.1f ms\n", ours * 1e3,
                bare * 1e3);
    report.ratio("the grid filled and painted / a bare table", ours / bare, 3);
    dialog.DestroyWindow();
}
#endif

} // namespace

int main(int argc, char** argv) {
    bench::Report report;
    const std::size_t layers = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 100'000;
    VORD_MSGFunction::SetCurrentLanguageId(1033);
    const OdDbDatabasePtr database = OdDbDatabase::openBytes(manyLayers(layers)).database;
    if (!database) std::abort();
    {
        tv::host::EmbeddedHost host;
        measureOpening(report, *database);
        measureSorting(report, *database);
        measureSearch(report, *database);
        measureMemory(report, *database);
        measureChange(report, *database);
    }
#ifdef BENCH_QT
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    tv::host::EmbeddedHost host;
    QtToolkit toolkit;
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("IDD_BENCH_GRID.ui")));
    if (!file.open(QIODevice::WriteOnly) || file.write(window) < 0) std::abort();
    file.close();
    toolkit.addTemplatePath(folder.path());
    tv::ui::ModuleChain::instance().add({"bench", false, templates});
    measureWindow(report, toolkit, *database, static_cast<int>(layers));
#endif
    return report.exitCode();
}
