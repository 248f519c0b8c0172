// tallix-synthetic-year: writes a synthetic year data file.
//   tallix-synthetic-year OUT.xml [--lines N] [--expenses N] [--banks N]
//       [--accounts N] [--cards N] [--income N] [--customers N] [--year YYYY]
//       [--seed N] [--check]
#include <charconv>
#include <cstdint>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "data/structure_check.h"
#include "synthetic_year.h"

namespace {

using tallix::bench::SyntheticYearOptions;

constexpr int kOk = 0;
constexpr int kFaults = 1;
constexpr int kUsage = 2;
constexpr int kFailed = 3;

void usage(std::ostream& to) {
    const SyntheticYearOptions d;
    to << "usage: tallix-synthetic-year OUT.xml [options]\n\n"
       << "Writes a structurally valid year data file with the given shape. The same\n"
       << "options always give the same file.\n\n"
       << "  --lines N       register lines in each month (default " << d.linesPerMonth << ")\n"
       << "  --expenses N    expenses in the plan, card payments and Transfer included\n"
       << "                  (default " << d.expenses << ")\n"
       << "  --banks N       banks (default " << d.banks << ")\n"
       << "  --accounts N    bank accounts of all banks together (default: banks + 1)\n"
       << "  --cards N       credit cards (default " << d.cards << ")\n"
       << "  --income N      income sources (default " << d.incomeSources << ")\n"
       << "  --customers N   customers (default " << d.customers << ")\n"
       << "  --year YYYY     the year (default " << d.year << ")\n"
       << "  --seed N        the seed of the generator (default " << d.seed << ")\n"
       << "  --check         check the written file as tallix-cli check does\n"
       << "\nexit status: 0 done, 1 the check found faults, 2 wrong arguments, 3 failed\n";
}

template <typename Number>
std::optional<Number> parseNumber(std::string_view text) {
    Number value{};
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

int run(int argc, char** argv) {
    SyntheticYearOptions options;
    std::string out;
    bool check = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "-h" || arg == "--help") {
            usage(std::cout);
            return kOk;
        }
        if (arg == "--check") {
            check = true;
            continue;
        }
        if (arg.substr(0, 2) != "--") {
            if (!out.empty())
                return kUsage;
            out = arg;
            continue;
        }
        if (i + 1 >= argc)
            return kUsage;
        const std::string_view value = argv[++i];
        if (arg == "--seed") {
            auto seed = parseNumber<std::uint64_t>(value);
            if (!seed)
                return kUsage;
            options.seed = *seed;
            continue;
        }
        auto number = parseNumber<int>(value);
        if (!number || *number < 0)
            return kUsage;
        if (arg == "--lines")
            options.linesPerMonth = *number;
        else if (arg == "--expenses")
            options.expenses = *number;
        else if (arg == "--banks")
            options.banks = *number;
        else if (arg == "--accounts")
            options.accounts = *number;
        else if (arg == "--cards")
            options.cards = *number;
        else if (arg == "--income")
            options.incomeSources = *number;
        else if (arg == "--customers")
            options.customers = *number;
        else if (arg == "--year" && *number >= 1000 && *number <= 9999)
            options.year = *number;
        else
            return kUsage;
    }
    if (out.empty())
        return kUsage;

    tallix::bench::SyntheticYearSummary s = tallix::bench::writeSyntheticYear(out, options);
    std::cout << out << ": " << s.totalLines << " lines (" << s.linesPerMonth << " a month), "
              << s.expenses << " expenses in " << s.categories << " categories, " << s.banks
              << " banks with " << s.accounts << " accounts, " << s.cards << " cards, "
              << s.balanceColumns << " balance columns\n";
    if (!check)
        return kOk;
    const std::vector<std::string> faults = tallix::checkFile(out);
    for (const std::string& fault : faults)
        std::cout << fault << '\n';
    return faults.empty() ? kOk : kFaults;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        int status = run(argc, argv);
        if (status == kUsage)
            usage(std::cerr);
        return status;
    } catch (const std::exception& e) {
        std::cerr << "tallix-synthetic-year: " << e.what() << '\n';
    }
    return kFailed;
}
