// tallix-cli: the program's headless companion. One command per invocation:
//   tallix-cli COMMAND [ARGUMENTS...]
// Each command lives in its own file and is listed in kCommands below.
#include <array>
#include <exception>
#include <iostream>
#include <string_view>

#include "cli/commands.h"
#include "tallix_build.h"

namespace {

using tallix::cli::Command;

constexpr std::array<Command, 17> kCommands = {{
    {"check", "FILE",
     "report what a year data file or the index file lacks or holds out of shape, one line "
     "per fault; exit status 1 when there is any",
     tallix::cli::runCheck},
    {"find", "FILE TEXT",
     "list the lines of the year that hold TEXT in their expense, description, check number "
     "or category (letters in any case), or whose amount TEXT is; tab-separated month, day, "
     "line, expense, amount and status; exit status 1 when nothing is found",
     tallix::cli::runFind},
    {"show", "FILE MONTH [--today YYYY-MM-DD]",
     "show MONTH (1-12 or its name) as its month button does and print the grid: the column "
     "titles, then one line per row, cells joined by a tab; notices go to standard error",
     tallix::cli::runShow},
    {"update-all", "FILE [--today YYYY-MM-DD]",
     "recompute every month from January to December, carrying each month's closing into the "
     "next, and save the file",
     tallix::cli::runUpdateAll},
    {"next-year", "DATAROOT YEAR [--name FILE]",
     "make next year's data file (FILE, default tallixYEAR+1.xml) from the file the index in "
     "DATAROOT/tallix names for YEAR, enter it in the index and print its path",
     tallix::cli::runNextYear},
    {"report", "KIND FILE [--month M] [--today YYYY-MM-DD] [--data-root DIR]",
     "print a report's columns and rows as comma-separated lines and write its file "
     "(yearendreport.csv, monthendreport.csv, monthendreceivablereport.csv) into "
     "~/Documents/tallix/reports as the program does (DIR/Documents/tallix/reports with "
     "--data-root DIR), naming it on standard error; KIND is recurring (for month M, default "
     "today's), year, monthly, receivables-monthly or receivables-year",
     tallix::cli::runReport},
    {"expense",
     "rename FILE CATEGORY OLD NEW [--lines]\n"
     "  expense move FILE EXPENSE FROM-CATEGORY TO-CATEGORY [--lines]\n"
     "  expense apply FILE CATEGORY EXPENSE MONTH [--amount A] [--status S] [--due M/D/YYYY]\n"
     "                [--paid TEXT] [--check N] [--all-months]",
     "rename an expense of CATEGORY (--lines: and the register lines that name it there); "
     "move an expense to the end of another category (--lines: and give its register lines "
     "the new category); write the given values into MONTH (1-12 or its name) of an "
     "expense's plan, the others staying as they are (--all-months: and carry them on to "
     "December). Prints what changed; exit status 1 when a name is not found or a value is "
     "refused",
     tallix::cli::runExpense},
    {"category",
     "rename FILE OLD NEW\n  category add FILE NEW --before CATEGORY\n"
     "  category delete FILE NAME",
     "rename a category, its expenses' category and every register line's; add a category "
     "before another, holding one expense xxxx; delete a category with all its expenses. "
     "Prints what changed; exit status 1 when a name is not found or refused",
     tallix::cli::runCategory},
    {"bank",
     "add FILE BANK ACCOUNT --bank-title T [--register-title T]\n"
     "                [--outstanding-title T] [--start AMOUNT]\n"
     "  bank rename FILE OLD NEW\n  bank delete FILE BANK",
     "add a bank with its first account and its columns (a register title asks for the "
     "register and the outstanding column, which then needs its title too); rename a bank and "
     "every expense, register line, income and receivable naming it; delete a bank and its "
     "columns. Prints what changed; exit status 1 when a name is not found or taken or a "
     "value is refused",
     tallix::cli::runBank},
    {"account",
     "add FILE BANK ACCOUNT --bank-title T [--register-title T]\n"
     "                   [--outstanding-title T] [--start AMOUNT]\n"
     "  account rename FILE BANK OLD NEW\n  account delete FILE BANK ACCOUNT",
     "add an account to a bank with a column for each title given; rename an account of a "
     "bank and every place naming it; delete an account and its columns. Prints what "
     "changed; exit status 1 as for bank",
     tallix::cli::runAccount},
    {"card",
     "add FILE NAME [--title T] [--last-year AMOUNT] [--closing-day D] [--due-day D]\n"
     "  card rename FILE OLD NEW\n  card delete FILE NAME",
     "add a credit card with its column (headed T, default NAME); rename a card, its column "
     "and every place naming it; delete a card, its column and the expense named after it. "
     "Prints what changed; exit status 1 as for bank",
     tallix::cli::runCard},
    {"income",
     "set FILE NAME [--name NEW] [--bank B] [--account A]\n"
     "                [--type \"auto day\"|\"auto date\"|posted] [--day D] [--number N]\n"
     "                [--amount R] [--year YYYY]\n"
     "  income add FILE NAME --like SOURCE [--bank B] [--account A] [--amount R]\n"
     "  income delete FILE NAME",
     "save an income source's values, the options not given kept as they are: for \"auto "
     "date\" D is the day of the month, for \"auto day\" a weekday and N which one of the "
     "month (1-5); the twelve dates are worked out for YYYY (default: the year of a FILE named "
     "tallixYYYY.xml, else today's) and printed. Add a source before SOURCE, copied from it; "
     "delete a source. Exit status 1 when a name is not found or taken or a value is refused",
     tallix::cli::runIncome},
    {"customer", "add FILE NAME --like CUSTOMER [--number N]\n  customer delete FILE NAME",
     "add a customer before CUSTOMER, copied from it with its institution, account, "
     "repeating amount and (unless N is given) number, each month's items cut down as the "
     "receivables dialog does; delete a customer. Exit status 1 as for income",
     tallix::cli::runCustomer},
    {"undo", "FILE",
     "take back the last change saved to FILE, by the program or by tallix-cli, as Edit > "
     "Undo does; prints what was undone; exit status 1 when there is nothing to undo",
     tallix::cli::runUndo},
    {"redo", "FILE",
     "make the change undo took back again, as Edit > Redo does; exit status 1 when there is "
     "nothing to redo",
     tallix::cli::runRedo},
    {"history", "FILE",
     "list the versions of FILE its history keeps, newest first: number (* marks the "
     "current one), time and what changed",
     tallix::cli::runHistory},
    {"restore", "FILE N",
     "make version N (as history lists it) the current one; undo takes this back; exit "
     "status 1 when the history does not keep N",
     tallix::cli::runRestore},
}};

void printUsage(std::ostream& to) {
    to << "usage: tallix-cli COMMAND [ARGUMENTS...]\n\ncommands:\n";
    for (const Command& command : kCommands)
        to << "  " << command.name << ' ' << command.arguments << "\n      " << command.summary
           << '\n';
    to << "  help, --help\n      show this text\n"
       << "  --version\n      print the version\n"
       << "\nexit status: 0 done, 1 faults found, 2 wrong command or arguments, 3 failed\n";
}

int run(int argc, char** argv) {
    if (argc < 2) {
        printUsage(std::cerr);
        return tallix::cli::kUsage;
    }
    std::string_view name = argv[1];
    if (name == "help" || name == "--help" || name == "-h") {
        printUsage(std::cout);
        return tallix::cli::kOk;
    }
    if (name == "--version") {
        std::cout << "tallix-cli " << TALLIX_VERSION << '\n';
        return tallix::cli::kOk;
    }
    for (const Command& command : kCommands) {
        if (command.name != name)
            continue;
        tallix::cli::Arguments arguments(argv + 2, argv + argc);
        int status = tallix::cli::kUsage;
        try {
            status = command.run(arguments, std::cout, std::cerr);
        } catch (const tallix::cli::UsageError& e) {
            std::cerr << "tallix-cli: " << e.what() << "\n\n";
        }
        if (status == tallix::cli::kUsage)
            printUsage(std::cerr);
        return status;
    }
    std::cerr << "tallix-cli: unknown command '" << name << "'\n\n";
    printUsage(std::cerr);
    return tallix::cli::kUsage;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& e) {
        std::cerr << "tallix-cli: " << e.what() << '\n';
    } catch (...) {
        std::cerr << "tallix-cli: unknown error\n";
    }
    return tallix::cli::kFailed;
}
