// Lists of many rows. Sorting a list of names by a click on its title against making ICU's sort keys for the
// same names and sorting these and nothing else; and opening a list of a million rows, taking all of them and
// inverting that, against calling an empty function as often as there are rows. Prints the ratios and fails
// when the first is above its limit. Usage: bench_list_sort [names [rows]]

#include "bench/Report.h"
#include "platform/text/MessageManager.h"
#include "platform/toolkit/Dialog.h"
#include "platform/toolkit/ListCtrl.h"
#include "platform/toolkit/SortedRows.h"
#include "platform/toolkit/headless/HeadlessToolkit.h"

#include <unicode/coll.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <random>

namespace {

// Something the optimiser can't see through takes every result.
volatile std::int64_t g_result;

struct Names : tv::ui::ListModel {
    std::vector<std::wstring> names;
    int rowCount() const override { return static_cast<int>(names.size()); }
    tv::ui::ListCell cell(int row, int column) const override {
        tv::ui::ListCell out;
        out.text = text(row, column);
        return out;
    }
    std::wstring text(int row, int) const override { return names[static_cast<std::size_t>(row)]; }
};

// Names as drawings have them: a word, a number, now and then another word.
std::shared_ptr<Names> someNames(int count) {
    static constexpr const wchar_t* words[] = {L"Wall", L"wall ext",    L"A-DOOR", L"배관",
                                               L"Dim_", L"x-ref|Layer", L"Ось ",   L"軸"};
    std::mt19937 random(7);
    auto out = std::make_shared<Names>();
    for (int i = 0; i < count; ++i) {
        std::wstring name = words[random() % std::size(words)] + std::to_wstring(random() % 100000);
        if (random() % 3 == 0) name += std::wstring(L"-") + words[random() % std::size(words)];
        out->names.push_back(std::move(name));
    }
    return out;
}

void sortBare(const std::vector<icu::UnicodeString>& names, const icu::Collator& collator) {
    std::vector<std::string> keys;
    keys.reserve(names.size());
    std::string key(1024, '\0');
    for (const icu::UnicodeString& name : names) {
        const int32_t size =
            collator.getSortKey(name, reinterpret_cast<uint8_t*>(key.data()), static_cast<int32_t>(key.size()));
        keys.emplace_back(key.data(), static_cast<std::size_t>(size));
    }
    std::vector<int> order(names.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return keys[static_cast<std::size_t>(a)] < keys[static_cast<std::size_t>(b)];
    });
    g_result = order.front();
}

[[gnu::noinline]] void nothing(int row) { g_result = row; }

struct Rows : tv::ui::ListModel {
    explicit Rows(int rows) : count(rows) {}
    int rowCount() const override { return count; }
    tv::ui::ListCell cell(int, int) const override { return {}; }
    int count;
};

} // namespace

int main(int argc, char** argv) {
    bench::Report report;
    const int count = argc > 1 ? std::atoi(argv[1]) : 100'000;
    const int rows = argc > 2 ? std::atoi(argv[2]) : 1'000'000;
    tv::ui::HeadlessToolkit toolkit;
    VORD_MSGFunction::SetCurrentLanguageId(1033);

    const auto names = someNames(count);
    std::vector<icu::UnicodeString> bareNames;
    for (const std::wstring& name : names->names)
        bareNames.push_back(icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(name.data()),
                                                          static_cast<int32_t>(name.size())));
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(icu::Locale("en"), status));
    if (!collator) std::abort();
    collator->setStrength(icu::Collator::SECONDARY);
    collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);

    double bare = 1e9, ours = 1e9, calls = 1e9, open = 1e9;
    for (int i = 0; i < 9; ++i) { // in turns, the best of each
        bare = std::min(bare, bench::processorSeconds([&] { sortBare(bareNames, *collator); }));

        CDialog dialog(0, nullptr);
        CListCtrl list(dialog, "IDC_LIST", true);
        list.SetColumns({{L"Name", 100}});
        list.SetModel(std::make_shared<tv::ui::SortedRows>(names));
        list.SetSelection(tv::ui::RowSet::range(10, count / 2));
        ours = std::min(ours, bench::processorSeconds([&] { list.SortBy(0, true); }));
        g_result = list.selection().count();

        calls = std::min(calls, bench::processorSeconds([&] {
                             for (int row = 0; row < rows; ++row)
                                 nothing(row);
                         }));
        constexpr int times = 100; // too short for a clock otherwise
        const auto model = std::make_shared<Rows>(rows);
        open = std::min(open, bench::processorSeconds([&] {
                                  for (int turn = 0; turn < times; ++turn) {
                                      list.SetModel(model);
                                      list.SetSelection(tv::ui::RowSet::range(0, rows - 1));
                                      tv::ui::RowSet others = list.selection();
                                      others.invert(rows);
                                      list.SetSelection(std::move(others));
                                      g_result = list.GetCurSel();
                                  }
                              }) / times);
    }
    std::printf("%d names: %.1f ms, %.1f ms by ICU alone\n", count, ours * 1e3, bare * 1e3);
    std::printf("%d rows: %.4f ms, %.4f ms for as many calls\n", rows, open * 1e3, calls * 1e3);
    report.ratio("sorting a list by names / ICU's keys made and sorted", ours / bare, 1.5);
    report.ratio("a long list opened, selected, inverted / a call a row", open / calls, 1);
    return report.exitCode();
}
