#pragma once
// The five reports of the report dialog, built from the loaded year document
// (which they never change), and the comma-separated files they write.
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

enum class ReportKind {
    Recurring = 7,
    YearEnd = 8,
    MonthlyExpenses = 9,
    MonthlyReceivables = 20,
    ReceivablesYear = 21,
};

struct ReportColumn {
    std::string title;
    int width;  // 200 for the wide columns, 100 for the others
};

struct ReportLayout {
    ReportKind kind;
    std::string title;
    // The list's columns after its hidden first column.
    std::vector<ReportColumn> columns;
    // The file written when the report is built ("" when none) and the file
    // PRINT opens (for the reports without a file of their own, PRINT writes
    // the shown rows to it first).
    std::string fileName;
    std::string printFileName;
    // The command's name in its failure message.
    std::string handlerName;
    // The name tallix-cli knows the report by.
    std::string cliName;
};

const ReportLayout& reportLayout(ReportKind kind);
const std::vector<ReportKind>& allReportKinds();
std::optional<ReportKind> reportKindFromCliName(std::string_view name);

struct Report {
    ReportKind kind;
    // One entry per list row, one cell per column of the layout.
    std::vector<std::vector<std::string>> rows;
    // The bytes of the report's own file; empty for the reports without one.
    std::string fileBytes;
};

inline constexpr const char* kTotalLabel = "TOTAL";
inline constexpr const char* kLeftToPayLabel = "LEFT TO PAY";
inline constexpr const char* kNotPaid = "notpaid";

// Builds a report from the year document (its document node). `month` (1-12)
// is the displayed month, used by the recurring report. Throws on an amount
// that is not a number ("invalid stof argument") or a missing child.
Report buildReport(pugi::xml_node document, ReportKind kind, int month);

// Each report on its own (buildReport chooses among them).
Report recurringReport(pugi::xml_node document, int month);
Report yearEndReport(pugi::xml_node document);
Report monthlyExpenseReport(pugi::xml_node document);
Report monthlyReceivableReport(pugi::xml_node document);
Report receivableYearReport(pugi::xml_node document);

// A plan amount: "" and "$" count as 0; anything else must be a number.
double planAmount(const std::string& text);

// The list's column titles and rows as comma-separated lines (a field holding
// a comma, a quote or a line break is quoted).
std::string rowsAsCsv(const Report& report);
// Joins fields the same way, without the end of line.
std::string csvLine(const std::vector<std::string>& fields);

// <Documents>/tallix/reports: where the program and tallix-cli write the
// report files.
std::filesystem::path reportFolder(const std::filesystem::path& documentsFolder);

// Writes the report's own file into `folder` (created when missing),
// replacing an older one at once (atomic write); returns its path, or
// nothing for a report without a file.
std::optional<std::filesystem::path> writeReportFile(const Report& report,
                                                     const std::filesystem::path& folder);
// The file PRINT opens, written into `folder` the same way: the report's own
// file, or the shown rows for the reports without one.
std::filesystem::path writePrintFile(const Report& report, const std::filesystem::path& folder);

// Whether the list cell (row, column of the layout) is a recurring expense's
// "notpaid" status, drawn white on red.
bool isNotPaidCell(const Report& report, size_t row, size_t column);

}  // namespace tallix
