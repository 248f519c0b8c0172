// tallix-fuzz: feeds mangled year files to the program's core and watches for
// what must never happen whatever a file holds.
//
//   tallix-fuzz CORPUS_DIR [--seed N] [--seconds S] [--runs N] [--findings DIR]
//               [--last-input FILE] [--timeout S]
//   tallix-fuzz --replay FILE_OR_DIR [--replay FILE_OR_DIR ...] [--timeout S]
//
// Each run takes a file of CORPUS_DIR (or a mutant kept earlier because it
// made the program say something new), mutates it (mutator.h: elements
// swapped, dropped, copied, moved, renamed; odd numbers and names; attributes
// dropped or doubled; a second root; bytes flipped, inserted, cut), writes it
// as tallix2026.xml into a folder of its own and runs it in-process
// (harness.h): the load, the structural check, Update all months, every month
// shown and updated, Refresh, and every report with its CSV file.
//
// A finding is
//   - a sanitizer report or a crash (the asan preset aborts on the first),
//   - a run that does not end within --timeout seconds (default 20),
//   - an exception that escaped the command handlers,
//   - a file that failed to load but whose bytes changed.
// The input under way is written to --last-input (default
// FINDINGS/last-input.xml) before it runs, so a crash leaves its reproducer;
// a crash, a hang or a problem also saves it as FINDINGS/<hash>.xml (default
// FINDINGS: fuzz-findings), with what went wrong in <hash>.txt (a problem) or
// <hash>.log (a crash: the program's output with the sanitizer's report). The
// program's own output goes to a log in the work folder and is shown only
// when a run crashes. The same seed walks the same mutants.
//
// --replay runs the given files (every file of a folder) once, unmutated,
// with the program's output shown: fuzz/regressions/ holds one reproducer per
// fault found, and ctest replays each of them.
//
// Exit status: 0 without findings, 1 with any, 2 for a usage error.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

#include "harness.h"
#include "mutator.h"

#if defined(__SANITIZE_ADDRESS__)
// UBSan's settings when UBSAN_OPTIONS does not give them: a report aborts, so
// that the input is saved (UBSan would otherwise end the process quietly).
extern "C" const char* __ubsan_default_options() {
    return "print_stacktrace=1:halt_on_error=1:abort_on_error=1";
}
#endif

namespace fs = std::filesystem;
using namespace tallix::fuzz;

namespace {

// What a crash handler needs, kept where a signal handler may read it.
namespace crash {
const std::string* input = nullptr;
char findingPath[4096] = "";  // where the input goes on a crash ("" on replay)
char label[4096] = "";        // the input's name in the message
char logPath[4096] = "";      // the program's output ("" when not redirected)
char logCopyPath[4096] = "";  // where a crash keeps that output ("" on replay)
int errFd = STDERR_FILENO;    // the fuzzer's own standard error
unsigned timeoutSeconds = 20;
volatile sig_atomic_t saved = 0;
unsigned long long runs = 0;  // the runs begun, this one included

void sayNumber(unsigned long long value) {
    char digits[24];
    size_t at = sizeof digits;
    do {
        digits[--at] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value);
    if (write(errFd, digits + at, sizeof digits - at) < 0) {
    }
}

void say(const char* text) {
    if (write(errFd, text, std::strlen(text)) < 0) {
    }
}

void copyLog(int to) {
    int log = open(logPath, O_RDONLY);
    char buffer[4096];
    for (ssize_t n; log >= 0 && (n = read(log, buffer, sizeof buffer)) > 0;)
        if (write(to, buffer, static_cast<size_t>(n)) < 0)
            break;
    if (log >= 0)
        close(log);
}

// Async-signal-safe: shows the program's output of the run and saves it and
// the input. Once per process.
void save(const char* why) {
    if (saved)
        return;
    saved = 1;
    if (logPath[0]) {
        copyLog(errFd);
        if (int copy = logCopyPath[0] ? open(logCopyPath, O_WRONLY | O_CREAT | O_TRUNC, 0644) : -1;
            copy >= 0) {
            copyLog(copy);
            close(copy);
        }
    }
    say("tallix-fuzz: ");
    say(why);
    say(" on ");
    say(label);
    say(" in run ");
    sayNumber(runs);
    say("\n");
    if (findingPath[0] && input) {
        int out = open(findingPath, O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (out >= 0 && write(out, input->data(), input->size()) >= 0) {
            say("tallix-fuzz: saved as ");
            say(findingPath);
            say("\n");
        }
        if (out >= 0)
            close(out);
    }
}

}  // namespace crash

void onAlarm(int) {
    crash::save("hang (the run did not end in time)");
    signal(SIGABRT, SIG_DFL);
    abort();
}

void onFatalSignal(int number) {
    crash::save(number == SIGABRT ? "abort" : "crash");
    signal(number, SIG_DFL);
    raise(number);
}

void installHandlers() {
    signal(SIGALRM, onAlarm);
    signal(SIGABRT, onFatalSignal);
#if defined(__SANITIZE_ADDRESS__)
    // The sanitizers handle the faults themselves and call this before they end
    // the process.
    __sanitizer_set_death_callback([] { crash::save("sanitizer report"); });
#else
    for (int number : {SIGSEGV, SIGBUS, SIGFPE, SIGILL})
        signal(number, onFatalSignal);
#endif
}

void copyText(char* to, size_t size, const std::string& text) {
    std::snprintf(to, size, "%s", text.c_str());
}

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFile(const fs::path& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::vector<fs::path> filesOf(const fs::path& path) {
    std::vector<fs::path> files;
    if (fs::is_directory(path)) {
        for (const fs::directory_entry& entry : fs::directory_iterator(path))
            if (entry.is_regular_file())
                files.push_back(entry.path());
        std::sort(files.begin(), files.end());
    } else if (fs::is_regular_file(path)) {
        files.push_back(path);
    }
    return files;
}

std::string hex(std::uint64_t value) {
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(value));
    return text;
}

// One input, under the alarm; the outcome of a run that ended.
Outcome runGuarded(const std::string& bytes, const fs::path& folder) {
    ++crash::runs;
    crash::input = &bytes;
    crash::saved = 0;
    alarm(crash::timeoutSeconds);
    Outcome outcome = runInput(bytes, folder);
    alarm(0);
    crash::input = nullptr;
    return outcome;
}

struct Options {
    fs::path corpus;
    std::vector<fs::path> replay;
    unsigned long long seed = 1;
    double seconds = 60;
    unsigned long long runs = 0;  // 0: no limit
    fs::path findings = "fuzz-findings";
    fs::path lastInput;
};

bool parse(int argc, char** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        try {
            if (arg == "--replay" && hasValue)
                options.replay.emplace_back(argv[++i]);
            else if (arg == "--seed" && hasValue)
                options.seed = std::stoull(argv[++i]);
            else if (arg == "--seconds" && hasValue)
                options.seconds = std::stod(argv[++i]);
            else if (arg == "--runs" && hasValue)
                options.runs = std::stoull(argv[++i]);
            else if (arg == "--findings" && hasValue)
                options.findings = argv[++i];
            else if (arg == "--last-input" && hasValue)
                options.lastInput = argv[++i];
            else if (arg == "--timeout" && hasValue)
                crash::timeoutSeconds = static_cast<unsigned>(std::stoul(argv[++i]));
            else if (arg.rfind("--", 0) != 0 && options.corpus.empty())
                options.corpus = arg;
            else
                return false;
        } catch (const std::exception&) {
            return false;
        }
    }
    return options.replay.empty() != options.corpus.empty();
}

fs::path makeWorkFolder() {
    std::string pattern = (fs::temp_directory_path() / "tallix-fuzz-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("cannot make a work folder");
    return pattern;
}

int replay(const Options& options) {
    const fs::path work = makeWorkFolder();
    int files = 0;
    int failed = 0;
    for (const fs::path& given : options.replay) {
        for (const fs::path& file : filesOf(given)) {
            ++files;
            std::fprintf(stderr, "tallix-fuzz: replaying %s\n", file.c_str());
            copyText(crash::label, sizeof crash::label, file.string());
            const std::string bytes = readFile(file);
            Outcome outcome = runGuarded(bytes, work / "year");
            for (const std::string& problem : outcome.problems)
                std::fprintf(stderr, "tallix-fuzz: %s: %s\n", file.c_str(), problem.c_str());
            failed += outcome.problems.empty() ? 0 : 1;
        }
    }
    fs::remove_all(work);
    std::fprintf(stderr, "tallix-fuzz: replayed %d files, findings: %d\n", files, failed);
    return files == 0 ? 2 : failed ? 1 : 0;
}

class Fuzzer {
  public:
    Fuzzer(const Options& options, fs::path work) : options_(options), work_(std::move(work)) {}

    int run() {
        for (const fs::path& file : filesOf(options_.corpus))
            corpus_.push_back(readFile(file));
        if (corpus_.empty()) {
            std::fprintf(stderr, "tallix-fuzz: no files in %s\n", options_.corpus.c_str());
            return 2;
        }
        fs::create_directories(options_.findings);
        lastInput_ =
            options_.lastInput.empty() ? options_.findings / "last-input.xml" : options_.lastInput;
        std::fprintf(stderr, "tallix-fuzz: seed %llu, %zu inputs in corpus, %g seconds\n",
                     options_.seed, corpus_.size(), options_.seconds);
        redirectOutput();

        const auto start = std::chrono::steady_clock::now();
        auto elapsed = [&] {
            return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        };
        for (const std::string& input : corpus_)
            runOne(input);
        while (elapsed() < options_.seconds && (options_.runs == 0 || runs_ < options_.runs)) {
            const bool fromKept = !kept_.empty() && random_() % 2 == 0;
            const std::string& parent =
                fromKept ? kept_[random_() % kept_.size()] : corpus_[random_() % corpus_.size()];
            runOne(mutate(parent, random_));
        }

        restoreOutput();
        std::fprintf(stderr,
                     "tallix-fuzz: inputs in corpus: %zu, runs: %llu, findings: %d "
                     "(seed %llu, %.0f seconds, %zu mutants kept)\n",
                     corpus_.size(), runs_, findings_, options_.seed, elapsed(), kept_.size());
        return findings_ ? 1 : 0;
    }

  private:
    void runOne(const std::string& bytes) {
        ++runs_;
        const std::string name = hex(hashText(bytes));
        writeFile(lastInput_, bytes);
        copyText(crash::label, sizeof crash::label, name + " (" + lastInput_.string() + ")");
        copyText(crash::findingPath, sizeof crash::findingPath,
                 (options_.findings / (name + ".xml")).string());
        copyText(crash::logCopyPath, sizeof crash::logCopyPath,
                 (options_.findings / (name + ".log")).string());
        if (ftruncate(log_, 0) != 0) {
        }
        Outcome outcome = runGuarded(bytes, work_ / "year");

        bool fresh = false;
        for (std::uint64_t feature : outcome.features)
            fresh |= features_.insert(feature).second;
        if (fresh) {
            if (kept_.size() < kKeptMax)
                kept_.push_back(bytes);
            else
                kept_[random_() % kKeptMax] = bytes;
        }

        std::string report;
        bool novel = false;
        for (const std::string& problem : outcome.problems) {
            report += problem + '\n';
            novel |= problems_.insert(problem).second;
        }
        if (!novel)
            return;  // nothing, or a problem already saved
        ++findings_;
        writeFile(options_.findings / (name + ".xml"), bytes);
        writeFile(options_.findings / (name + ".txt"), report);
        std::fprintf(say_, "tallix-fuzz: finding %s: %s", name.c_str(), report.c_str());
    }

    // The program's notices and failure lines go to a log that each run
    // starts afresh; the sanitizers write there too, and a crash shows it.
    void redirectOutput() {
        const fs::path logPath = work_ / "program-output.log";
        copyText(crash::logPath, sizeof crash::logPath, logPath.string());
        log_ = open(logPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0644);
        savedOut_ = dup(STDOUT_FILENO);
        crash::errFd = dup(STDERR_FILENO);
        say_ = fdopen(dup(crash::errFd), "w");
        setvbuf(say_, nullptr, _IOLBF, 0);
        std::fflush(stdout);
        dup2(log_, STDOUT_FILENO);
        dup2(log_, STDERR_FILENO);
    }

    void restoreOutput() {
        std::fflush(stdout);
        std::fflush(say_);
        dup2(savedOut_, STDOUT_FILENO);
        dup2(crash::errFd, STDERR_FILENO);
        crash::logPath[0] = '\0';
        crash::findingPath[0] = '\0';
        crash::logCopyPath[0] = '\0';
    }

    static constexpr size_t kKeptMax = 512;
    const Options& options_;
    fs::path work_;
    fs::path lastInput_;
    Random random_{options_.seed};
    std::vector<std::string> corpus_;
    std::vector<std::string> kept_;
    std::set<std::uint64_t> features_;
    std::set<std::string> problems_;
    unsigned long long runs_ = 0;
    int findings_ = 0;
    int log_ = -1;
    int savedOut_ = -1;
    FILE* say_ = stderr;
};

}  // namespace

int main(int argc, char** argv) {
    Options options;
    if (!parse(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: tallix-fuzz CORPUS_DIR [--seed N] [--seconds S] [--runs N] "
                     "[--findings DIR] [--last-input FILE] [--timeout S]\n"
                     "       tallix-fuzz --replay FILE_OR_DIR [--replay ...] [--timeout S]\n");
        return 2;
    }
    installHandlers();
    if (!options.replay.empty())
        return replay(options);
    const fs::path work = makeWorkFolder();
    const int status = Fuzzer(options, work).run();
    fs::remove_all(work);
    return status;
}
