#include "reports/reports.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"
#include "support/temp_dir.h"
#include "support/thrown.h"

namespace tallix {
namespace {

using Row = std::vector<std::string>;
using test::readFile;

// tests/fixtures/reports/plan.xml: Housing (Rent, recurring; Power, auto,
// with "$" and empty amounts), Living (Groceries, accumulate), two income
// sources, two customers and one RMD holder with two accounts.
class ReportsTest : public ::testing::Test {
  protected:
    Document plan = Document::load(test::sourceDir() / "tests/fixtures/reports/plan.xml");
    test::TempDir dir;
};

// Each report is found by its command-line name; the file it writes when
// built and the one PRINT opens. (Its columns are the CSV headers below.)
TEST(ReportLayouts, EachReportHasItsCommandLineNameAndFiles) {
    std::vector<std::string> files;
    for (ReportKind kind : allReportKinds()) {
        const ReportLayout& layout = reportLayout(kind);
        EXPECT_EQ(reportKindFromCliName(layout.cliName), kind);
        files.push_back(layout.cliName + ": " + layout.fileName + " " + layout.printFileName);
    }
    EXPECT_EQ(files, (std::vector<std::string>{"recurring:  recurringreport.csv",
                                               "year: yearendreport.csv yearendreport.csv",
                                               "monthly: monthendreport.csv monthendreport.csv",
                                               "receivables-monthly: monthendreceivablereport.csv "
                                               "monthendreceivablereport.csv",
                                               "receivables-year:  receivableyearreport.csv"}));
    EXPECT_FALSE(reportKindFromCliName("weekly"));
}

TEST_F(ReportsTest, RecurringListsTheMonthsRecurringAndAutoExpensesWithTotals) {
    Report december = recurringReport(plan.node(), 12);
    ASSERT_EQ(december.rows.size(), 4u);  // Groceries is not recurring
    EXPECT_EQ(december.rows[0], (Row{"Rent", "1200.00", "12/1/2026", "0", "notpaid"}));
    EXPECT_EQ(december.rows[1], (Row{"Power", "110.5", "12/18/2026", "0", "notpaid"}));
    EXPECT_EQ(december.rows[2], (Row{"TOTAL", "1310.50", "", "", ""}));
    EXPECT_EQ(december.rows[3], (Row{"LEFT TO PAY", "1310.50", "", "", ""}));
    EXPECT_TRUE(isNotPaidCell(december, 0, 4));
    EXPECT_FALSE(isNotPaidCell(december, 0, 3));
    EXPECT_FALSE(isNotPaidCell(december, 2, 4));
    EXPECT_FALSE(isNotPaidCell(december, december.rows.size(), 4));  // below the rows

    Report january = recurringReport(plan.node(), 1);
    EXPECT_EQ(january.rows[0], (Row{"Rent", "1200.00", "1/1/2026", "1/1/2026", "cleared"}));
    EXPECT_EQ(january.rows[2], (Row{"TOTAL", "1280.10", "", "", ""}));
    EXPECT_EQ(january.rows[3], (Row{"LEFT TO PAY", "0.00", "", "", ""}));
    EXPECT_FALSE(isNotPaidCell(january, 0, 4));

    // April: Rent is left out this month ("no entry") and counts for nothing;
    // Power's amount is empty.
    Report april = recurringReport(plan.node(), 4);
    EXPECT_EQ(april.rows[0][4], "no entry");
    EXPECT_EQ(april.rows[2], (Row{"TOTAL", "0.00", "", "", ""}));
    EXPECT_EQ(april.rows[3], (Row{"LEFT TO PAY", "0.00", "", "", ""}));
}

// November of the sample year, worked out by hand from examples/tallix2026.xml:
//   Mortgage 1850.00 cleared, Electric 128.90 posted, Water 48.60 pending,
//   Internet 84.99 posted, Car Insurance 128.50 posted, Doctor "no entry",
//   Visa 310.00 pending, Mastercard 41.45 pending (Groceries, Resturants,
//   Gasoline and Pharmacy are everyday spending, not listed).
//   TOTAL       = 1850.00 + 128.90 + 48.60 + 84.99 + 128.50 + 310.00 + 41.45 = 2592.44
//   LEFT TO PAY = the three checks not yet cleared: 48.60 + 310.00 + 41.45 = 400.05
TEST_F(ReportsTest, RecurringCountsWhatIsStillToPayAndEveryCardPayment) {
    Document sample = Document::load(test::sourceDir() / "examples/tallix2026.xml");
    Report november = recurringReport(sample.node(), 11);
    ASSERT_EQ(november.rows.size(), 10u);
    EXPECT_EQ(november.rows[2], (Row{"Water", "48.60", "11/28/2026", "0", "pending"}));
    EXPECT_EQ(november.rows[8], (Row{"TOTAL", "2592.44", "", "", ""}));
    EXPECT_EQ(november.rows[9], (Row{"LEFT TO PAY", "400.05", "", "", ""}));

    // March of the fixture: Power's automatic payment (status "auto") is not
    // made yet, so it is still to pay beside Rent's 1200.00 "notpaid".
    setNodeText(selectOne(plan.node(),
                          "/tallix/catagories/category/names/name[@id='Power']/*[8]/*[3]/*[2]"),
                "75.25");
    Report march = recurringReport(plan.node(), 3);
    EXPECT_EQ(march.rows[1], (Row{"Power", "75.25", "3/18/2026", "0", "auto"}));
    EXPECT_EQ(march.rows.back(), (Row{"LEFT TO PAY", "1275.25", "", "", ""}));
    // With Living renamed "Credit Cards", Groceries (accumulate, 395.50
    // "notpaid") is a card payment and listed too.
    setAttributeText("Credit Cards", "id",
                     selectOne(plan.node(), "/tallix/catagories/category[@id='Living']"));
    march = recurringReport(plan.node(), 3);
    ASSERT_EQ(march.rows.size(), 5u);
    EXPECT_EQ(march.rows[2], (Row{"Groceries", "395.50", "0", "0", "notpaid"}));
    EXPECT_EQ(march.rows[3], (Row{"TOTAL", "1670.75", "", "", ""}));
    EXPECT_EQ(march.rows[4], (Row{"LEFT TO PAY", "1670.75", "", "", ""}));
}

TEST_F(ReportsTest, MonthlyExpenseTotalsWriteTheExpectedFileAndReplaceIt) {
    Report report = buildReport(plan.node(), ReportKind::MonthlyExpenses, 3);
    ASSERT_EQ(report.rows.size(), 5u);
    EXPECT_EQ(report.rows[0][0], "Housing");
    EXPECT_EQ(report.rows[0][1], " ");
    EXPECT_EQ(report.rows[0][2], " ");
    EXPECT_EQ(report.rows[2][1], "Power");
    EXPECT_EQ(report.rows[2][3], "75");  // February, as written
    EXPECT_EQ(report.rows[2][4], "0");   // March's "$"
    EXPECT_EQ(report.rows[2][5], "0");   // April's empty amount

    const std::string expected =
        readFile(test::sourceDir() / "tests/fixtures/reports/monthendreport_expected.csv");
    // The folder is made when missing.
    std::optional<std::filesystem::path> file = writeReportFile(report, reportFolder(dir.path()));
    ASSERT_TRUE(file);
    EXPECT_EQ(*file, dir / "tallix" / "reports" / "monthendreport.csv");
    EXPECT_EQ(readFile(*file), expected);

    writeReportFile(buildReport(plan.node(), ReportKind::MonthlyExpenses, 3), file->parent_path());
    EXPECT_EQ(readFile(*file), expected);
}

TEST_F(ReportsTest, AnAmountThatIsNotANumberEndsTheReport) {
    setChildText(childAt(childAt(requireOne(plan.node(), paths::kExpense, "Groceries"), 7), 5), 1,
                 "abc");
    EXPECT_EQ(test::thrown<std::invalid_argument>([&] { monthlyExpenseReport(plan.node()); }),
              "invalid stof argument");
    EXPECT_THROW(yearEndReport(plan.node()), std::invalid_argument);
}

// Expenses by category, income, then each RMD holder's draws: the rows of
// tests/fixtures/reports/yearendreport_expected.csv.
TEST_F(ReportsTest, YearEndTotalsExpensesByCategoryThenIncomeAndRmds) {
    Report report = yearEndReport(plan.node());
    EXPECT_EQ(report.fileBytes, rowsAsCsv(report));
    EXPECT_EQ(writeReportFile(report, dir.path()), dir / "yearendreport.csv");
    EXPECT_EQ(readFile(dir / "yearendreport.csv"),
              readFile(test::sourceDir() / "tests/fixtures/reports/yearendreport_expected.csv"));
}

TEST_F(ReportsTest, ReceivablesAddUpEachCustomersItemsPerMonthAndForTheYear) {
    Report monthly = monthlyReceivableReport(plan.node());
    ASSERT_EQ(monthly.rows.size(), 2u);
    EXPECT_EQ(monthly.rows[0],
              (Row{"Maple Bakery", "1001", "100.00", "0.00", "350.50", "0.00", "0.00", "0.00",
                   "0.00", "0.00", "0.00", "0.00", "0.00", "0.00"}));
    EXPECT_EQ(monthly.rows[1][13], "75.25");
    EXPECT_EQ(monthly.fileBytes,
              "CUSTOMER,CUSTOMER #,January,February,March,April,May,June,July,August,September,"
              "October,November,December\n"
              "Maple Bakery,1001,100.00,0.00,350.50,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00\n"
              "\"Oak, Lane & Co\",1002,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,"
              "75.25\n");

    Report year = receivableYearReport(plan.node());
    EXPECT_EQ(year.rows,
              (std::vector<Row>{{"Maple Bakery", "450.50"}, {"Oak, Lane & Co", "75.25"}}));
    EXPECT_FALSE(writeReportFile(year, dir.path()));
    std::filesystem::path printed = writePrintFile(year, dir / "new");
    EXPECT_EQ(printed, dir / "new" / "receivableyearreport.csv");
    EXPECT_EQ(readFile(printed),
              "CUSTOMER,AMOUNT\nMaple Bakery,450.50\n\"Oak, Lane & Co\",75.25\n");
}

// 12.34 + 0.04 + 0.62 adds up to just under 13 in binary: the totals print
// the cents exactly.
TEST_F(ReportsTest, YearTotalsAreExactToTheCent) {
    const char* amounts[] = {"12.34", "0.04", "0.62"};
    pugi::xml_node groceries = requireOne(plan.node(), paths::kExpense, "Groceries");
    pugi::xml_node maple = requireOne(plan.node(), paths::kReceivable, "Maple Bakery");
    for (int m = 0; m < 12; ++m) {
        setChildText(childAt(childAt(groceries, 7), static_cast<size_t>(m)), 1,
                     m < 3 ? amounts[m] : "0");
        for (pugi::xml_node item :
             elementChildren(childAt(childAt(maple, 4), static_cast<size_t>(m))))
            setChildText(item, 1, "0");
    }
    for (int m = 0; m < 3; ++m)
        setChildText(childAt(childAt(childAt(maple, 4), static_cast<size_t>(m)), 0), 1, amounts[m]);

    const std::vector<Row> rows = yearEndReport(plan.node()).rows;
    EXPECT_EQ(rows[4], (Row{"Living", "Groceries", "13.00", ""}));
    EXPECT_EQ(rows[5], (Row{"Living", "Totals", "", "13.00"}));
    EXPECT_EQ(receivableYearReport(plan.node()).rows[0], (Row{"Maple Bakery", "13.00"}));
}

}  // namespace
}  // namespace tallix
