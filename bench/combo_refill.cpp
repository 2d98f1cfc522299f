// What a list of a drawing's records costs beside the least it could cost: many requests beside one refill, a
// refill of many entries beside a vector of the same strings, and, with the Qt face, opening a long list beside
// opening a short one. Prints the ratios and fails when one is above its limit. Usage: bench_combo_refill
// [entries]

#include "bench/BigDrawing.h"
#include "bench/Report.h"
#include "kxgui/controls/LayerCombos.h"
#include "platform/drawing/OdDbDatabase.h"
#include "platform/drawing/OdDbLayerTable.h"
#include "platform/host/embedded/EmbeddedHost.h"
#include "platform/text/AtomicFile.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ModuleChain.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"
#ifdef BENCH_QT
#include "qt/controls/ComboBridge.h"

#include <QApplication>
#endif

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <unistd.h>

namespace {

constexpr int rounds = 9; // in turns, the best of each

constexpr unsigned comboTemplate = 9401;
constexpr tv::ui::DialogTemplate templates[] = {{comboTemplate, "IDD_BENCH_COMBO", {100, 50}, false}};

struct LayerDlg : CDialog {
    LayerDlg() : CDialog(comboTemplate, nullptr) {}
    CCobxLayer combo{*this, "IDC_COMBO"};
};

// Does something while a dialog is open, and closes it.
struct Once : tv::ui::Driver {
    std::function<void()> does;
    bool step(tv::ui::Waiting& waiting) override {
        does();
        waiting.dialog->EndDialog(IDOK);
        return true;
    }
    void lost(tv::ui::Waiting&) override {}
};

void openDrawing(tv::host::EmbeddedHost& host, std::size_t layers) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("combo_refill." + std::to_string(getpid()) + ".dxf");
    if (tv::writeFileAtomically(file, bench::bigDrawing(0, layers))) std::abort();
    std::vector<tv::Problem> problems;
    if (!host.documentManager()->openDocument(file, problems)) std::abort();
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

void best(double& time, const std::function<void()>& work) {
    time = std::min(time, bench::processorSeconds(work));
}

// Many requests, which lead to one refill, beside one refill of a drawing just opened.
void measureRequests(bench::Report& report) {
    constexpr int requests = 10000;
    tv::ui::HeadlessToolkit toolkit;
    double asking = 1e9, refilling = 1e9;
    for (int i = 0; i < rounds; ++i) {
        tv::host::EmbeddedHost host;
        openDrawing(host, 1000);
        LayerDlg dialog;
        Once driver;
        toolkit.setDriver(&driver);
        driver.does = [&] {
            best(refilling, [&] {
                dialog.combo.ScheduleUpdate();
                toolkit.advance(std::chrono::milliseconds(50));
            });
            if (dialog.combo.GetCount() != 1000) std::abort();
            best(asking, [&] {
                for (int request = 0; request < requests; ++request)
                    dialog.combo.ScheduleUpdate();
                toolkit.advance(std::chrono::milliseconds(50));
            });
        };
        dialog.DoModal();
        toolkit.setDriver(nullptr);
    }
    std::printf("%d requests %.6f s, one refill of 1,000 layers %.6f s\n", requests, asking, refilling);
    report.ratio("10,000 requests / one refill of 1,000 layers", asking / refilling, 1);
}

void measureRefill(bench::Report& report, std::size_t entries) {
    tv::ui::HeadlessToolkit toolkit;
    double first = 1e9, again = 1e9, unchanged = 1e9, strings = 1e9;
    for (int i = 0; i < rounds; ++i) {
        tv::host::EmbeddedHost host;
        openDrawing(host, entries);
        const OdDbDatabasePtr database = host.documentManager()->currentDocument()->database();
        LayerDlg dialog;
        Once driver;
        toolkit.setDriver(&driver);
        driver.does = [&] {
            CCobxLayer& combo = dialog.combo;
            best(first, [&] { combo.Refresh(); });
            if (combo.GetCount() != static_cast<int>(entries)) std::abort();
            const auto layer =
                database->layers()->getAt(L"Layer 5").open<OdDbLayerTableRecord>(OdDb::kForWrite);
            layer->setIsFrozen(true);
            best(again, [&] { combo.Refresh(); });
            best(unchanged, [&] { combo.Refresh(); });
            best(strings, [&] {
                std::vector<std::wstring> texts;
                for (int at = 0; at < combo.GetCount(); ++at)
                    texts.push_back(combo.items().at(at).text);
                if (texts.size() != entries) std::abort();
            });
        };
        dialog.DoModal();
        toolkit.setDriver(nullptr);
    }
    std::printf(
        "%zu entries: first fill %.6f s, refill after a change %.6f s, without one %.6f s, strings %.6f s\n",
        entries, first, again, unchanged, strings);
    std::printf("first fill / strings %.1f\n", first / strings);
    report.ratio("refill after one layer changed / vector of strings", again / strings, 3);
}

#ifdef BENCH_QT
// From the key to the painted list.
double openingList(int entries) {
    tv::ui::ListItems items;
    std::vector<tv::ui::ListItem> list;
    for (int i = 0; i < entries; ++i)
        list.push_back({L"Layer " + std::to_wstring(i), 0, nullptr});
    items.assign(std::make_shared<const std::vector<tv::ui::ListItem>>(std::move(list)));
    tv::qt::DropDownBox box;
    box.rows().reset(items);
    box.itemsChanged();
    box.show();
    double time = 1e9;
    for (int i = 0; i < rounds; ++i) {
        best(time, [&] {
            box.list().open();
            box.list().highlight(entries / 2);
            QApplication::processEvents();
        });
        box.list().hide();
        QApplication::processEvents();
    }
    return time;
}

void measureOpening(bench::Report& report) {
    (void)openingList(100); // fonts and styles are loaded
    double few = 1e9, many = 1e9, most = 1e9;
    for (int i = 0; i < 3; ++i) {
        few = std::min(few, openingList(100));
        many = std::min(many, openingList(10000));
        most = std::min(most, openingList(100000));
    }
    std::printf("opening a list: of 100 entries %.6f s, of 10,000 %.6f s, of 100,000 %.6f s\n", few, many,
                most);
    report.ratio("opening 10,000 entries / opening 100", many / few, 1.5);
    report.ratio("opening 100,000 entries / opening 100", most / few, 1.5);
}
#endif

} // namespace

int main(int argc, char** argv) {
    bench::Report report;
    const std::size_t entries = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 10000;
    tv::ui::ModuleChain::instance().add({"bench", false, templates});
    measureRequests(report);
    measureRefill(report, entries);
#ifdef BENCH_QT
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    measureOpening(report);
#endif
    return report.exitCode();
}
