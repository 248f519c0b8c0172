#include "targets_reporter.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <ostream>

namespace tallix::bench {
namespace {

constexpr double kLinearFactor = 1.2;     // heavy per-line time / typical per-line time
constexpr double kUpdateAllFactor = 3.0;  // Update all months / (load + save)

double median(std::vector<double> values) {
    if (values.empty())
        return -1;
    std::sort(values.begin(), values.end());
    const size_t n = values.size();
    return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

const char* verdict(bool met) {
    return met ? "met" : "MISSED";
}

// printf-style formatting onto the reporter's stream.
__attribute__((format(printf, 2, 3))) void print(std::ostream& out, const char* format, ...) {
    char buffer[512];
    va_list args;
    va_start(args, format);
    std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    out << buffer;
}

}  // namespace

void TargetsReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
        if (run.error_occurred)
            continue;
        Figures& f = figures_[run.run_name.function_name];
        const bool iteration = run.run_type == Run::RT_Iteration && run.iterations > 0;
        const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        if (!iteration && !median)
            continue;  // the mean, the spread: not used here
        if (auto found = run.counters.find("lines"); found != run.counters.end())
            f.lines = found->second.value;
        if (iteration) {
            const double n = static_cast<double>(run.iterations);
            f.wall.push_back(run.real_accumulated_time / n);
            f.cpu.push_back(run.cpu_accumulated_time / n);
        } else {
            const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
            f.wallMedians.push_back(run.GetAdjustedRealTime() / unit);
            f.cpuMedians.push_back(run.GetAdjustedCPUTime() / unit);
        }
    }
}

double TargetsReporter::seconds(const std::string& name, Clock clock) const {
    auto found = figures_.find(name);
    if (found == figures_.end())
        return -1;
    const Figures& f = found->second;
    const bool wall = clock == Clock::Wall;
    if (!(wall ? f.wall : f.cpu).empty())
        return median(wall ? f.wall : f.cpu);
    return median(wall ? f.wallMedians : f.cpuMedians);
}

double TargetsReporter::lines(const std::string& name) const {
    auto found = figures_.find(name);
    return found == figures_.end() ? 0 : found->second.lines;
}

void TargetsReporter::perLineTarget(const std::string& command) const {
    const std::string typical = command + "/typical";
    const std::string heavy = command + "/heavy";
    const double lt = lines(typical);
    const double lh = lines(heavy);
    if (seconds(typical) <= 0 || seconds(heavy) <= 0 || lt <= 0 || lh <= 0)
        return;
    const double perT = seconds(typical) / lt * 1e6;
    const double perH = seconds(heavy) / lh * 1e6;
    const double ratio = perH / perT;
    const double cpuRatio = (seconds(heavy, Clock::Cpu) / lh) / (seconds(typical, Clock::Cpu) / lt);
    print(GetOutputStream(),
          "  (a) %-14s per line: typical %7.2f us, heavy %7.2f us, ratio %.2f (<= %.1f) %s"
          "  [cpu ratio %.2f]\n",
          command.c_str(), perT, perH, ratio, kLinearFactor, verdict(ratio <= kLinearFactor),
          cpuRatio);
    const std::string longer = command + "/long";
    const double l = seconds(longer);
    if (l > 0 && lines(longer) > 0)
        print(GetOutputStream(),
              "      %-14s long (typical plan, %g lines): %7.2f us a line, ratio to typical "
              "%.2f\n",
              "", lines(longer), l / lines(longer) * 1e6, l / lines(longer) * 1e6 / perT);
}

// The month's own work (the step benchmarks added up), without the save.
void TargetsReporter::stepsPerLine() const {
    static const char* const kSteps[] = {"step.FilltallixListBox", "step.readLinesIntoTable",
                                         "step.runBalanceEngine", "step.postDueEntries"};
    double perLine[2] = {0, 0};
    const char* const scenarios[2] = {"typical", "heavy"};
    for (int k = 0; k < 2; ++k) {
        for (const char* step : kSteps) {
            const std::string name = std::string(step) + "/" + scenarios[k];
            const double t = seconds(name);
            if (t <= 0 || lines(name) <= 0)
                return;
            perLine[k] += t / lines(name) * 1e6;
        }
    }
    const double ratio = perLine[1] / perLine[0];
    print(GetOutputStream(),
          "      %-14s the month's steps without the save: typical %7.2f us, heavy %7.2f us a "
          "line, ratio %.2f\n",
          "", perLine[0], perLine[1], ratio);
}

void TargetsReporter::updateAllTarget(const std::string& scenario) const {
    const std::string names[3] = {"OnToolsUpdateallmonths/" + scenario, "load/" + scenario,
                                  "save/" + scenario};
    double wall[3];
    double cpu[3];
    for (int k = 0; k < 3; ++k) {
        wall[k] = seconds(names[k]);
        cpu[k] = seconds(names[k], Clock::Cpu);
        if (wall[k] <= 0)
            return;
    }
    const double ratio = wall[0] / (wall[1] + wall[2]);
    print(GetOutputStream(),
          "  (b) Update all months, %-7s: %7.2f ms; load %.2f ms + save %.2f ms = %.2f ms; "
          "ratio %.2f (<= %.1f) %s  [cpu: %.2f / (%.2f + %.2f) ms, ratio %.2f]\n",
          scenario.c_str(), wall[0] * 1e3, wall[1] * 1e3, wall[2] * 1e3, (wall[1] + wall[2]) * 1e3,
          ratio, kUpdateAllFactor,
          scenario == "heavy" ? verdict(ratio <= kUpdateAllFactor) : "(for reference)",
          cpu[0] * 1e3, cpu[1] * 1e3, cpu[2] * 1e3, cpu[0] / (cpu[1] + cpu[2]));
}

void TargetsReporter::Finalize() {
    ConsoleReporter::Finalize();
    GetOutputStream() << "\nTargets (median wall time of the repetitions; CPU time in "
                         "brackets):\n";
    perLineTarget("displayMonth");
    perLineTarget("OnToolsUpdate");
    stepsPerLine();
    updateAllTarget("heavy");
    updateAllTarget("typical");
    GetOutputStream().flush();
}

}  // namespace tallix::bench
