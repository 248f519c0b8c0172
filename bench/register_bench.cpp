// tallix-bench: the register commands on generated years of three shapes,
// beside the time to load and save the same file. docs/performance.md
// explains the figures and the targets printed at the end.
//
// Every command benchmark starts each iteration from a fresh copy of the
// generated year (parsed from memory while the timer is paused), so each
// iteration does the same work: the engine writes the month's totals and
// closings and the command saves the file, as a user's first Update would.
// Freed memory is kept by the process throughout (see main), so a figure does
// not depend on which benchmark ran before it; load.cold gives the first-load
// cost.
#include <sys/stat.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <functional>
#include <string>

#include <benchmark/benchmark.h>

#include "bench_support.h"
#include "data/document.h"
#include "data/values.h"
#include "register/balance_engine.h"
#include "register/month_display.h"
#include "register/month_lines.h"
#include "register/month_load.h"
#include "targets_reporter.h"

namespace tallix::bench {
namespace {

using benchmark::Counter;

void perLine(benchmark::State& state, double lines) {
    state.counters["lines"] = lines;
    // Wall time per iteration divided by the lines it handled.
    state.counters["per_line"] =
        Counter(lines, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

// The session must not have shown anything: a notice means the generated
// year referred to something missing or a command failed.
bool clean(benchmark::State& state, const BenchSession& b) {
    if (b.prompter.notices() == 0)
        return true;
    state.SkipWithError(("notice shown: " + b.prompter.firstNotice()).c_str());
    return false;
}

// ---- the three register commands ---------------------------------------------

using Command = std::function<bool(Session&)>;

void commandBench(benchmark::State& state, const std::string& name, const Command& command,
                  bool wholeYear) {
    const Scenario& s = scenario(name);
    BenchSession b(s);
    const int lines = wholeYear ? s.summary.totalLines : b.monthLineCount();
    for (auto _ : state) {
        state.PauseTiming();
        b.freshCopy();
        b.session.month = kShownMonth;
        state.ResumeTiming();
        if (!command(b.session)) {
            state.SkipWithError("the command failed");
            break;
        }
    }
    if (clean(state, b))
        perLine(state, lines);
    state.counters["file_MB"] = static_cast<double>(s.bytes()) / 1e6;
}

bool showMonthCommand(Session& session) {
    return displayMonth(session, std::to_string(kShownMonth));
}

// ---- loading and saving the same file ----------------------------------------------

void loadBench(benchmark::State& state, const std::string& name) {
    const Scenario& s = scenario(name);
    Document doc;
    for (auto _ : state) {
        state.PauseTiming();
        doc = Document();  // the previous copy is freed outside the timed region
        state.ResumeTiming();
        doc = Document::load(s.file);
    }
    if (doc.loadFailed())
        state.SkipWithError("the generated year did not load");
    perLine(state, s.summary.totalLines);
    state.counters["file_MB"] = static_cast<double>(s.bytes()) / 1e6;
}

// The first load of a process, or one after the memory was handed back: the
// allocator returns its free memory to the system before each load, so the
// load pays for fresh pages again.
void coldLoadBench(benchmark::State& state, const std::string& name) {
    const Scenario& s = scenario(name);
    Document doc;
    for (auto _ : state) {
        state.PauseTiming();
        doc = Document();
#ifdef __GLIBC__
        ::malloc_trim(0);
#endif
        state.ResumeTiming();
        doc = Document::load(s.file);
    }
    if (doc.loadFailed())
        state.SkipWithError("the generated year did not load");
    perLine(state, s.summary.totalLines);
}

// The whole save: serialise, write a temporary file, flush it to disk, rename
// it over the target and flush the folder.
void saveBench(benchmark::State& state, const std::string& name) {
    const Scenario& s = scenario(name);
    const Document doc = Document::load(s.file);
    const std::filesystem::path target = benchFolder() / (name + "-saved.xml");
    for (auto _ : state)
        doc.save(target);
    perLine(state, s.summary.totalLines);
}

// The serialisation alone, to tell it from the disk's part of a save.
void serializeBench(benchmark::State& state, const std::string& name) {
    const Scenario& s = scenario(name);
    const Document doc = Document::load(s.file);
    for (auto _ : state)
        benchmark::DoNotOptimize(doc.serialize());
    perLine(state, s.summary.totalLines);
}

// ---- the steps of showing a month, for finding where the time goes -----------
// These run on a session that has already shown the month once (the steady
// state): each step is repeated on the same document.

using Step = std::function<void(Session&)>;

void stepBench(benchmark::State& state, const std::string& name, const Step& step) {
    const Scenario& s = scenario(name);
    BenchSession b(s);
    if (!displayMonth(b.session, std::to_string(kShownMonth)) || !clean(state, b))
        return;
    const int lines = b.monthLineCount();
    for (auto _ : state)
        step(b.session);
    if (clean(state, b))
        perLine(state, lines);
}

void readLinesStep(Session& session) {
    readLinesIntoTable(session.data.node(), monthName(session.month), session.month, session.year,
                       static_cast<int>(session.view.grid.columns.size()), session.view.fields,
                       session.view.table);
}

// Showing the month again on the same document, without a fresh copy: does
// a show whose engine finds nothing new still save the file? The "saved"
// counter is the share of iterations that replaced the file.
void steadyShowBench(benchmark::State& state, const std::string& name) {
    const Scenario& s = scenario(name);
    BenchSession b(s);
    if (!showMonthCommand(b.session))
        return state.SkipWithError("the month was not shown");
    auto inode = [&] {
        struct stat st {};
        ::stat(b.session.filePath.c_str(), &st);
        return st.st_ino;
    };
    long saved = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto before = inode();
        state.ResumeTiming();
        showMonthCommand(b.session);
        state.PauseTiming();
        saved += inode() != before;
        state.ResumeTiming();
    }
    if (clean(state, b))
        perLine(state, b.monthLineCount());
    state.counters["saved"] = static_cast<double>(saved) / static_cast<double>(state.iterations());
}

void registerAll() {
    auto add = [](const std::string& benchName, auto fn) {
        return benchmark::RegisterBenchmark(benchName.c_str(), fn)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    };
    for (const char* sc : {"typical", "heavy", "long"}) {
        const std::string n = sc;
        add("displayMonth/" + n,
            [n](benchmark::State& st) { commandBench(st, n, showMonthCommand, false); });
        add("OnToolsUpdate/" + n,
            [n](benchmark::State& st) { commandBench(st, n, OnToolsUpdate, false); });
        add("OnToolsUpdateallmonths/" + n,
            [n](benchmark::State& st) { commandBench(st, n, OnToolsUpdateallmonths, true); });
    }
    for (const char* sc : {"typical", "heavy"}) {
        const std::string n = sc;
        add("load/" + n, [n](benchmark::State& st) { loadBench(st, n); });
        add("load.cold/" + n, [n](benchmark::State& st) { coldLoadBench(st, n); });
        add("save/" + n, [n](benchmark::State& st) { saveBench(st, n); });
        add("serialize/" + n, [n](benchmark::State& st) { serializeBench(st, n); });
    }
    for (const char* sc : {"typical", "heavy"}) {
        const std::string n = sc;
        add("step.FilltallixListBox/" + n,
            [n](benchmark::State& st) { stepBench(st, n, FilltallixListBox); });
        add("step.readLinesIntoTable/" + n,
            [n](benchmark::State& st) { stepBench(st, n, readLinesStep); });
        add("step.runBalanceEngine/" + n, [n](benchmark::State& st) {
            stepBench(st, n, [](Session& s) { runBalanceEngine(s); });
        });
        add("step.postDueEntries/" + n,
            [n](benchmark::State& st) { stepBench(st, n, [](Session& s) { postDueEntries(s); }); });
        add("displayMonth.steady/" + n, [n](benchmark::State& st) { steadyShowBench(st, n); });
    }
}

}  // namespace
}  // namespace tallix::bench

int main(int argc, char** argv) {
#ifdef __GLIBC__
    // Freed memory stays with the process (as it does in a long-running
    // program), so that no figure depends on whether the allocator happened
    // to hand pages back to the system after an earlier benchmark.
    ::mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    ::mallopt(M_TRIM_THRESHOLD, 1024 * 1024 * 1024);
#endif
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    tallix::bench::registerAll();
    tallix::bench::TargetsReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
