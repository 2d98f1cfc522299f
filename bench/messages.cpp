// Loading and looking up ten thousand texts, each beside what it is measured against:
// loading / reading the file's bytes, and one lookup / one find in an unordered_map of the same keys.
#include "platform/text/MessageManager.h"
#include "platform/text/ReadFile.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <random>
#include <string>
#include <unistd.h>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

constexpr int keyCount = 10000;

struct Fixture {
    std::filesystem::path file;
    std::vector<std::string> keys; // in the order they are asked for
    std::unordered_map<std::string, std::wstring> map;

    Fixture() {
        file = std::filesystem::temp_directory_path() / ("kxmessages" + std::to_string(::getpid()) + "_kr.ini");
        std::ofstream out(file, std::ios::binary);
        for (int i = 0; i < keyCount; ++i) {
            keys.push_back("IDS_CAD_GUI_SOME_DIALOG_TEXT_" + std::to_string(i));
            map[keys.back()] = L"도면층 이름에 유효하지 않은 문자가 있습니다.";
            out << keys.back() << " = 도면층 이름에 유효하지 않은 문자가 있습니다.\n";
        }
        out.close();
        std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
        VORD_MSGFunction::AddFile(file);
        VORD_MSGFunction::LoadFile();
    }
    ~Fixture() { std::filesystem::remove(file); }
};

Fixture& fixture() {
    static Fixture instance;
    return instance;
}

void readBytes(benchmark::State& state) {
    for (auto _ : state) {
        std::string bytes;
        benchmark::DoNotOptimize(tv::readFile(fixture().file, bytes));
        benchmark::DoNotOptimize(bytes.data());
    }
}

void load(benchmark::State& state) {
    static_cast<void>(fixture());
    for (auto _ : state)
        benchmark::DoNotOptimize(VORD_MSGFunction::LoadFile());
}

void find(benchmark::State& state) {
    const Fixture& given = fixture();
    for (auto _ : state)
        for (const std::string& key : given.keys)
            benchmark::DoNotOptimize(given.map.find(key)->second.c_str());
    state.SetItemsProcessed(state.iterations() * keyCount);
}

void lookUp(benchmark::State& state) {
    const Fixture& given = fixture();
    // The first look at a text makes it wide, which belongs to neither side.
    for (const std::string& key : given.keys)
        benchmark::DoNotOptimize(VORD_ResourceString(key.c_str(), L"-").c_str());
    for (auto _ : state)
        for (const std::string& key : given.keys)
            benchmark::DoNotOptimize(VORD_ResourceString(key.c_str(), L"-").c_str());
    state.SetItemsProcessed(state.iterations() * keyCount);
}

// Remembers the best time of each measurement for the ratios.
class Reporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const double time = run.GetAdjustedCPUTime();
            double& best = m_best.try_emplace(run.run_name.function_name, time).first->second;
            best = std::min(best, time);
        }
    }
    bool has(const std::string& name) const { return m_best.count(name) > 0; }
    // Of the repetition the rest of the machine disturbed least.
    double best(const std::string& name) const { return m_best.at(name); }

  private:
    std::unordered_map<std::string, double> m_best;
};

} // namespace

int main(int argc, char** argv) {
    using Measured = void(benchmark::State&);
    for (auto [name, function] : std::initializer_list<std::pair<const char*, Measured*>>{
             {"readBytes", readBytes}, {"load", load}, {"find", find}, {"lookUp", lookUp}})
        benchmark::RegisterBenchmark(name, function)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.02)
            ->Repetitions(15);
    // Both sides of a ratio are measured in turns, so that what else the machine does hits both alike.
    std::vector<char*> arguments(argv, argv + argc);
    std::string interleaved = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleaved.data());
    argc = static_cast<int>(arguments.size());
    benchmark::Initialize(&argc, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(argc, arguments.data())) return 2;
    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    auto holds = [&](const char* name, const char* against, double limit) {
        if (!reporter.has(name) || !reporter.has(against)) return true;
        const double ratio = reporter.best(name) / reporter.best(against);
        std::printf("ratio %s / %s: %.2f (at most %.0f)\n", name, against, ratio, limit);
        return ratio <= limit;
    };
    const bool loading = holds("load", "readBytes", 10);
    const bool looking = holds("lookUp", "find", 2);
    return loading && looking ? 0 : 1;
}
