#pragma once
// A generator of synthetic year data files for benchmarks and load tests.
//
// The year it writes is structurally valid (tallix-cli check finds nothing)
// and consistent: every register line names an expense, income source or
// customer of the plan, a bank and account or a card that exists, and the
// plan's month entries agree with the lines (month totals, paid dates,
// receivable items pointing at their line numbers). No plan entry is
// "notpaid", so showing a month posts nothing and the measured work is the
// register itself. The same options always give the same bytes.
#include <cstdint>
#include <filesystem>
#include <string>

namespace tallix::bench {

struct SyntheticYearOptions {
    int year = 2026;
    // Register lines in each of the twelve months.
    int linesPerMonth = 60;
    // Expenses in the plan, all categories together: one per card (paying
    // it), "Transfer", and the household's own, which cycle through the
    // types accumulate, recurring and auto. Raised to cards + 4 at least.
    int expenses = 80;
    int banks = 3;
    // Bank accounts of all banks together, at least one per bank; 0 means
    // one more than the number of banks.
    int accounts = 0;
    int cards = 2;
    int incomeSources = 3;
    int customers = 2;
    std::uint64_t seed = 20260101;
};

// What a generated year holds, for reporting and per-line figures.
struct SyntheticYearSummary {
    int linesPerMonth = 0;
    int totalLines = 0;
    int expenses = 0;
    int categories = 0;
    int banks = 0;
    int accounts = 0;
    int cards = 0;
    int balanceColumns = 0;
};

// The options after the generator's adjustments (minimums, defaults).
SyntheticYearOptions normalized(const SyntheticYearOptions& options);

// The year file's text (UTF-8 XML).
std::string makeSyntheticYear(const SyntheticYearOptions& options,
                              SyntheticYearSummary* summary = nullptr);

// Writes the year file to `path` (overwriting it). Throws on a failed write.
SyntheticYearSummary writeSyntheticYear(const std::filesystem::path& path,
                                        const SyntheticYearOptions& options);

}  // namespace tallix::bench
