// tallix-history-bench: what the version history costs on the heavy
// generated year. A plain timing harness (each figure is the median of its
// runs): one atomic save of the file against recording one step, one undo
// against one load plus one save, and what 100 steps keep in memory and on
// disk. docs/performance.md explains the figures and the targets printed at
// the end.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "app/undo_history.h"
#include "app/version_history.h"
#include "bench_support.h"
#include "data/atomic_file.h"
#include "data/document.h"
#include "data/node_text.h"
#include "data/values.h"
#include "register/month_lines.h"

namespace tallix::bench {
namespace {

constexpr int kSteps = 100;

double millisecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// The process's resident memory in MB (VmRSS).
double residentMB() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
        if (word == "VmRSS:") {
            double kb = 0;
            status >> kb;
            return kb / 1024;
        }
    return 0;
}

// The change of step i: most steps type one amount; every tenth deletes a
// line, and every 25th renames the expense of many lines (a rename answered
// Yes rewrites the year's lines).
void change(Session& session, int i) {
    const std::string month = monthName(i % 12 + 1);
    std::vector<pugi::xml_node> lines = monthLines(session.data.node(), month);
    if (i % 25 == 24) {
        const std::string name = childText(lines.front(), 1);
        for (int m = 1; m <= 12; ++m)
            for (pugi::xml_node line : monthLines(session.data.node(), monthName(m)))
                if (childText(line, 1) == name)
                    setChildText(line, 1, name + " renamed");
    } else if (i % 10 == 9) {
        lines[lines.size() / 2].parent().remove_child(lines[lines.size() / 2]);
    } else {
        setChildText(lines[static_cast<size_t>(i * 7) % lines.size()], 2,
                     std::to_string(i) + ".25");
    }
}

int run() {
    const Scenario& heavy = scenario("heavy");
    BenchSession b(heavy);
    Session& session = b.session;
    const std::filesystem::path file = session.filePath;

    std::vector<double> saves, loads;
    for (int i = 0; i < 11; ++i) {
        saves.push_back(millisecondsOf([&] { session.data.save(file); }));
        loads.push_back(millisecondsOf([&] { Document::load(file); }));
    }
    session.openDataPath(file);
    VersionHistory* history = session.versions();  // its first version: the file as opened
    if (!history)
        throw std::runtime_error("the history could not be opened");

    const double memoryBefore = residentMB();
    std::vector<double> records;
    std::string saved = session.savedBytes();
    for (int i = 0; i < kSteps; ++i) {
        change(session, i);
        const std::string after = session.data.serialize();
        records.push_back(
            millisecondsOf([&] { history->record("step " + std::to_string(i), saved, after); }));
        writeFileAtomically(file, after);
        saved = after;
    }
    // The session saves as the program does from here on.
    session.openDataPath(file);
    const double memoryAfter = residentMB();
    const double diskMB = static_cast<double>(session.versions()->bytesOnDisk()) / 1e6;

    std::vector<double> undos;
    for (int i = 0; i < 11; ++i)
        undos.push_back(millisecondsOf([&] {
            if (!undo(session))
                throw std::runtime_error("nothing to undo");
        }));

    const double save = median(saves), load = median(loads), record = median(records);
    const double meanRecord = [&] {
        double total = 0;
        for (double r : records)
            total += r;
        return total / static_cast<double>(records.size());
    }();
    const double undoTime = median(undos);
    const double memory = memoryAfter - memoryBefore;
    auto verdict = [](bool met) { return met ? "met" : "NOT MET"; };
    std::printf("heavy year: %.1f MB, %d lines\n", static_cast<double>(heavy.bytes()) / 1e6,
                heavy.summary.totalLines);
    std::printf("  atomic save            %8.2f ms\n", save);
    std::printf("  load                   %8.2f ms\n", load);
    std::printf(
        "  record one step        %8.2f ms median, %.2f ms mean over %d steps "
        "(pruning included)\n",
        record, meanRecord, kSteps);
    std::printf("  undo one step          %8.2f ms median of 11\n", undoTime);
    std::printf("targets\n");
    std::printf("  record <= 0.5 x save:          %.2f <= %.2f ms  %s\n", meanRecord, save / 2,
                verdict(meanRecord <= save / 2));
    std::printf("  undo <= load + save:           %.2f <= %.2f ms  %s\n", undoTime, load + save,
                verdict(undoTime <= load + save));
    std::printf("  100 steps in memory <= 50 MB:  %.1f MB (resident growth)  %s\n", memory,
                verdict(memory <= 50));
    std::printf("  100 steps on disk <= 20 MB:    %.2f MB (%zu versions kept)  %s\n", diskMB,
                session.versions()->versions().size(), verdict(diskMB <= 20));
    return 0;
}

}  // namespace
}  // namespace tallix::bench

int main() {
    try {
        return tallix::bench::run();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tallix-history-bench: %s\n", failure.what());
        return 1;
    }
}
