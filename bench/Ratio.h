#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <unordered_map>
#include <vector>

// What every measurement here is: how much longer one thing takes than another, in one run.
namespace bench {

struct Measured {
    const char* name;
    void (*function)(benchmark::State&);
};

struct Ratio {
    const char* name;
    const char* against;
    double limit;
};

// Remembers the best time of each measurement: the one the rest of the machine disturbed least.
class BestTimes : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            const double time = run.GetAdjustedCPUTime();
            double& best = m_best.try_emplace(run.run_name.function_name, time).first->second;
            best = std::min(best, time);
        }
    }
    bool has(const char* name) const { return m_best.count(name) > 0; }
    double of(const char* name) const { return m_best.at(name); }

  private:
    std::unordered_map<std::string, double> m_best;
};

// Runs the measurements, prints the ratios and answers the exit code: 1 when one is above its limit. Both sides
// of a ratio are measured in turns, so that what else the machine does hits both alike. A ratio one side of
// which was filtered out on the command line is left out.
inline int run(int argc, char** argv, std::initializer_list<Measured> measurements,
               std::initializer_list<Ratio> ratios) {
    for (const Measured& one : measurements)
        benchmark::RegisterBenchmark(one.name, one.function)
            ->Unit(benchmark::kMicrosecond)
            ->MinTime(0.02)
            ->Repetitions(15);
    std::vector<char*> arguments(argv, argv + argc);
    std::string interleaved = "--benchmark_enable_random_interleaving=true";
    arguments.insert(arguments.begin() + 1, interleaved.data());
    argc = static_cast<int>(arguments.size());
    benchmark::Initialize(&argc, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(argc, arguments.data())) return 2;
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    bool all = true;
    for (const Ratio& ratio : ratios) {
        if (!times.has(ratio.name) || !times.has(ratio.against)) continue;
        const double value = times.of(ratio.name) / times.of(ratio.against);
        std::printf("ratio %s / %s: %.2f (at most %.0f)\n", ratio.name, ratio.against, value, ratio.limit);
        all = all && value <= ratio.limit;
    }
    return all ? 0 : 1;
}

} // namespace bench
