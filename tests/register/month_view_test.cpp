// The register's columns, the month's lines in the grid table, showing,
// refusing and refreshing a month, and finding lines.
#include <gtest/gtest.h>

#include "data/schema_names.h"
#include "editing/row_operations.h"
#include "register/line_search.h"
#include "register/month_lines.h"
#include "register/register_columns.h"
#include "register/year_file.h"

namespace tallix {
namespace {

using test::YearFile;
namespace col = test::col;

TEST(RegisterColumns, FirstThreeAreDayDateAndAFiftyWideItemWhateverTheirTitles) {
    YearFile year({2026, 3, 15});
    GridColumns grid = AddtallixColumns(year.data());
    ASSERT_EQ(grid.columns.size(), 22u);
    struct Expected {
        int column;
        const char* title;
        int width;  // pixels: characters times 6
    };
    for (auto [c, title, width] :
         {Expected{0, "", 1}, Expected{1, "DAY", 18}, Expected{2, "DATE", 24},
          Expected{3, "ITEM", 50}, Expected{4, "Expense", 120}, Expected{12, "B", 6},
          Expected{15, "CK Outstanding", 72}, Expected{21, "Typeofentry", 78}}) {
        EXPECT_EQ(grid.columns[c].title, title) << c;
        EXPECT_EQ(grid.columns[c].width, width) << c;
    }
    EXPECT_EQ(grid.outstandingCheckColumn, col::kCkOutstanding);

    FieldColumns f = initcolumns(year.data());
    EXPECT_EQ(
        (std::vector<int>{f.expense, f.amount, f.check, f.category, f.status, f.description,
                          f.institution, f.account, f.b, f.info, f.accumulate, f.typeofentry}),
        (std::vector<int>{4, 5, 6, 7, 8, 9, 10, 11, 12, 19, 20, 21}));
}

TEST(RegisterColumns, AMissingFieldTitleFailsTheCommand) {
    YearFile year({2026, 3, 15});
    pugi::xml_node b = requireOne(year.data(), paths::kColumn, "B");
    b.parent().remove_child(b);
    EXPECT_FALSE(loadColumns(year.session()));
    EXPECT_EQ(year.prompter.shown, std::vector<std::string>{"runtime error in initcolumns() "});
}

TEST(MonthLines, FillOneRowPerLineAndAStartingRow) {
    YearFile year({2026, 3, 15});
    GridTable table;
    readLinesIntoTable(year.data(), "March", 3, 2026, 22, year.session().view.fields, table);
    ASSERT_EQ(table.rowCount(), 19);
    EXPECT_EQ(table.columnCount(), 30);
    EXPECT_EQ(table.cell(17, col::kLine), "18");
    EXPECT_EQ(table.cell(17, col::kDate), "3");
    // Line 2, a transfer: its last three fields stand under Info, Accumulate, Typeofentry.
    EXPECT_EQ(table.cell(1, col::kInstitution), "Summit Savings");
    EXPECT_EQ(table.cell(1, col::kInfo), "Harbor Bank");
    EXPECT_EQ(table.cell(1, col::kAccumulate), "Checking");
    EXPECT_EQ(table.cell(1, col::kType), "transfer");
    // Empty fields read as a single blank; the starting row is all blanks.
    for (int c : {col::kExpense, col::kAmount, col::kCheck, col::kStatus, col::kInfo})
        EXPECT_EQ(table.cell(6, c), " ") << c;
    for (int c = 0; c < 30; ++c)
        EXPECT_EQ(table.cell(18, c), " ") << c;

    // The lowest line of each day shows a weekday: that of (the next line's
    // day + 1) on the row above it, and the last line its own. March 2026
    // began on a Sunday.
    const std::pair<int, const char*> weekdays[] = {
        {0, "Tue"},   // 31st, above the 30th: 30 + 1 = 31, a Tuesday
        {9, "Thu"},   // 20th, above the 18th: the 19th, a Thursday (the 20th was a Friday)
        {10, "Mon"},  // 18th, above the 15th: the 16th
        {11, " "},    // the 15th, above another line of the 15th
        {12, "Fri"},  // 15th, above the 12th: the 13th
        {16, "Wed"},  // 5th, above the 3rd: the 4th
        {17, "Tue"},  // the last line, the 3rd: its own day
    };
    for (auto [row, weekday] : weekdays)
        EXPECT_EQ(table.cell(row, col::kDay), weekday) << row;

    readLinesIntoTable(year.data(), "January", 1, 2026, 22, year.session().view.fields, table);
    EXPECT_EQ(table.rowCount(), 0);
}

// The remembered row is -1 for the current calendar month of the current
// year and for Update all months ("13"), and a month button's 31 otherwise.
TEST(MonthDisplay, RemembersRowMinusOneOnlyForTheCurrentMonthAndUpdateAll) {
    struct Case {
        int month;
        const char* argument;
        int year;
        int remembered;
    };
    for (const Case& c : {Case{3, "3", 2026, -1}, Case{4, "4", 2026, 31}, Case{4, "13", 2026, -1},
                          Case{3, "3", 2025, 31}}) {
        YearFile year({2026, 3, 15});
        year.session().setYear(c.year);
        year.session().month = c.month;
        year.session().view.rememberedRow = 31;
        EXPECT_TRUE(displayMonth(year.session(), c.argument));
        EXPECT_EQ(year.session().view.rememberedRow, c.remembered) << c.argument << " " << c.year;
    }
}

TEST(MonthDisplay, AnEmptyMonthIsRefusedAndChangesNothing) {
    YearFile year({2026, 3, 15});
    ASSERT_TRUE(year.show(3));
    const std::string bytes = test::readFile(year.path);
    const std::string before = year.session().data.serialize();
    const std::string april = year.cell(0, col::kCkRegister);
    year.prompter.shown.clear();

    EXPECT_FALSE(year.show(1));
    EXPECT_EQ(year.prompter.shown,
              std::vector<std::string>{"You tying to load the month of January which has no "
                                       "entries and its not the current calendar month"});
    EXPECT_EQ(year.table().rowCount(), 19);
    EXPECT_EQ(year.cell(0, col::kCkRegister), april);
    EXPECT_EQ(year.session().data.serialize(), before);
    EXPECT_EQ(test::readFile(year.path), bytes);

    // What acts on the grid's lines next still acts on March.
    EXPECT_EQ(year.session().month, 3);
    EXPECT_EQ(year.session().view.lineCount, 18);
    InsertRow(year.session(), 0, "check");
    EXPECT_EQ(elementChildCount(year.month("March")), 19u);
    EXPECT_EQ(elementChildCount(year.month("January")), 0u);
}

// A column definition that cannot be read is reported by the column step, and
// the month is shown with the columns that could be read.
TEST(MonthDisplay, ABadColumnDefinitionIsReportedAndTheMonthStillShows) {
    YearFile year({2026, 3, 15});
    setChildText(requireOne(year.data(), paths::kColumn, "Amex"), 1, "wide");
    ASSERT_TRUE(year.show(3));
    EXPECT_EQ(year.prompter.shown.front(), "runtime error in FilltallixListBox() ");
    EXPECT_EQ(year.table().rowCount(), 19);
    EXPECT_EQ(year.cell(0, col::kVisa), "145.50");
    EXPECT_EQ(year.session().view.grid.columns.size(), 22u);
    EXPECT_EQ(year.session().view.grid.columns[col::kAmex].width, 60);
}

TEST(MonthDisplay, RefreshShowsTheFileAsItIsOnDiskAndPostsNothing) {
    YearFile year({2026, 4, 15});
    year.session().month = 4;
    ASSERT_TRUE(OnToolsUpdate(year.session()));
    ASSERT_EQ(year.table().rowCount(), 10);  // April's entries due by the 15th were posted

    YearFile fresh({2026, 4, 15});
    setChildText(childAt(fresh.month("April"), 0), 2, "11.00");
    fresh.session().saveSettled();
    std::filesystem::copy_file(fresh.path, year.path,
                               std::filesystem::copy_options::overwrite_existing);
    ASSERT_TRUE(Refresh(year.session()));
    EXPECT_EQ(year.table().rowCount(), 5);
    EXPECT_EQ(year.cell(0, col::kAmount), "11.00");
}

// Showing a month saves the file when the engine changed it, and only then:
// the month's totals are reset and added up again on every run.
TEST(MonthDisplay, ShowingAnUnchangedMonthAgainWritesNothing) {
    test::YearFile year({2026, 11, 21});
    ASSERT_TRUE(year.show(3));
    const auto written = std::filesystem::last_write_time(year.path);
    const std::string bytes = test::readFile(year.path);
    ASSERT_TRUE(year.show(3));
    EXPECT_EQ(std::filesystem::last_write_time(year.path), written);
    EXPECT_EQ(test::readFile(year.path), bytes);
}

// A command that fails saves nothing. Update all months is all or nothing: a
// month that fails leaves the year in the window as it was, and the message
// names the month and the line. Two children swapped by hand stop the first
// write into them, naming the file and the element.
TEST(FailedCommands, SaveNothingAndSayWhere) {
    {
        test::YearFile year({2026, 4, 20});
        setChildText(childAt(year.month("April"), 1), schema::kDebit, "abc");
        year.session().saveSettled();
        const std::string bytes = test::readFile(year.path);
        const std::string before = year.session().data.serialize();
        year.session().month = 2;

        EXPECT_FALSE(OnToolsUpdateallmonths(year.session()));
        EXPECT_EQ(year.prompter.shown.back(),
                  "runtime error in OnToolsUpdateallmonths() April: line 4 (day 14, Groceries): "
                  "invalid stof argument; nothing was saved");
        EXPECT_EQ(test::readFile(year.path), bytes);
        EXPECT_EQ(year.session().data.serialize(), before);  // March is not left recomputed
        EXPECT_EQ(year.session().month, 2);
    }
    {
        test::YearFile year({2026, 3, 20});
        pugi::xml_node march = year.planMonth(paths::kIncome, "Payroll", 6, 3);
        march.insert_move_before(march.child("date"), march.child("amount"));
        year.session().saveSettled();
        const std::string bytes = test::readFile(year.path);

        EXPECT_FALSE(year.show(3));
        EXPECT_EQ(year.prompter.shown.back(),
                  "runtime error in displayMonth() " + year.path.string() +
                      ": /tallix/income/name[@id='Payroll']/months/month[3]: child 1 is 'date' "
                      "where 'amount' belongs, so it is not written");
        EXPECT_EQ(test::readFile(year.path), bytes);
        EXPECT_EQ(nodeText(march.child("date")), "3/15/2026");
    }
}

// Edit > Find over the sample year: texts found in any of the four fields
// without regard to case, amounts found whatever way they are typed.
// "day expense" of the March results.
std::vector<std::string> inMarch(const std::vector<FoundLine>& found) {
    std::vector<std::string> lines;
    for (const FoundLine& f : found)
        if (f.month == 3)
            lines.push_back(f.day + " " + f.expense + " " + f.amount + " " + f.status + " #" +
                            std::to_string(f.line));
    return lines;
}

TEST(LineSearch, FindsTextsInFourFieldsAndAmountsHoweverTyped) {
    test::YearFile year({2026, 3, 15}, test::sourceDir() / "examples/tallix2026.xml");
    using L = std::vector<std::string>;
    EXPECT_EQ(inMarch(findLines(year.data(), " sHELL ")),
              (L{"28 Gasoline 39.57 cleared #1", "11 Gasoline 49.50 posted #18"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "$1,850")), (L{"1 Mortgage 1850.00 cleared #24"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "46.340")),
              (L{"23 Mastercard 46.34 posted check #5", "19 Mastercard 46.34 cleared #9"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "2045")),
              (L{"11 Visa 278.32 posted check #17", "7 Visa 278.32 cleared #19"}));
    EXPECT_EQ(inMarch(findLines(year.data(), "receivables")).size(), 3u);  // a category
    const std::vector<FoundLine> all = findLines(year.data(), "Mortgage");
    ASSERT_EQ(all.size(), 11u);  // December is not planned in the sample yet
    for (size_t m = 0; m < all.size(); ++m)
        EXPECT_EQ(all[m].month, static_cast<int>(m + 1));
    EXPECT_TRUE(findLines(year.data(), "  ").empty());
    EXPECT_TRUE(findLines(year.data(), "no such thing").empty());
}

}  // namespace
}  // namespace tallix
