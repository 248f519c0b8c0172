#pragma once
// The console report of Google Benchmark, followed by the performance targets
// read off the runs: per-line times of the one-month commands, typical
// against heavy, and Update all months against one load plus one save.
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace tallix::bench {

class TargetsReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

  private:
    enum class Clock { Wall, Cpu };
    struct Figures {
        // Time per iteration in seconds, one per repetition, from the runs
        // themselves or, in an aggregate-only report, from their medians.
        std::vector<double> wall, cpu, wallMedians, cpuMedians;
        double lines = 0;
    };
    // The median time per iteration in seconds, or a negative number.
    double seconds(const std::string& name, Clock clock = Clock::Wall) const;
    double lines(const std::string& name) const;
    void perLineTarget(const std::string& command) const;
    void stepsPerLine() const;
    void updateAllTarget(const std::string& scenario) const;

    std::map<std::string, Figures> figures_;
};

}  // namespace tallix::bench
