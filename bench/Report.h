#pragma once

#include <chrono>
#include <cstdio>
#include <ctime>

// What the programs share that time whole pieces of work themselves.
namespace bench {

// Time on the clock.
template <class Work>
double seconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Time of the processor, so that what else the machine does counts little. Not for work in several threads.
template <class Work>
double processorSeconds(Work&& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// Prints ratios and remembers whether one was above its limit.
class Report {
  public:
    void ratio(const char* what, double value, double limit) {
        std::printf("%-58s %7.3f  (limit %.3g)%s\n", what, value, limit, value > limit ? "  TOO MUCH" : "");
        m_failed |= value > limit;
    }
    int exitCode() const { return m_failed ? 1 : 0; }

  private:
    bool m_failed = false;
};

} // namespace bench
