// The reports' titles, columns and files, and how their rows reach a file.
#include <algorithm>
#include <stdexcept>

#include "data/atomic_file.h"
#include "data/values.h"
#include "reports/reports.h"

namespace tallix {
namespace {

constexpr int kWide = 200;
constexpr int kNarrow = 100;

std::vector<ReportColumn> withMonths(std::vector<ReportColumn> columns) {
    for (int m = 1; m <= 12; ++m)
        columns.push_back({monthName(m), kNarrow});
    return columns;
}

std::vector<ReportLayout> makeLayouts() {
    return {
        {ReportKind::Recurring,
         "EXPENSE: RECURRING REPORT",
         {{"Expense", kWide},
          {"AMOUNT", kNarrow},
          {"DUE DATE", kNarrow},
          {"DATE PAID", kNarrow},
          {"STATUS", kNarrow}},
         "",
         "recurringreport.csv",
         "OnToolsRecurringexpenses",
         "recurring"},
        {ReportKind::YearEnd,
         "EXPENSE: YEAR END REPORT",
         {{"category", kNarrow}, {"Expense", kWide}, {"AMOUNT", kNarrow}, {"TOTAL", kNarrow}},
         "yearendreport.csv",
         "yearendreport.csv",
         "OnReportsYeartodatetotals",
         "year"},
        {ReportKind::MonthlyExpenses, "EXPENSE: CURRENT MONTH REPORT",
         withMonths({{"category", kNarrow}, {"Expense", kWide}}), "monthendreport.csv",
         "monthendreport.csv", "OnReportsMonthlytotals", "monthly"},
        {ReportKind::MonthlyReceivables, "RECEIVABLES: CURRENT MONTH REPORT",
         withMonths({{"CUSTOMER", kNarrow}, {"CUSTOMER #", kNarrow}}),
         "monthendreceivablereport.csv", "monthendreceivablereport.csv",
         "OnReportsMonthlyreceivable", "receivables-monthly"},
        {ReportKind::ReceivablesYear,
         "RECEIVABLES: YEAR END REPORT",
         {{"CUSTOMER", kNarrow}, {"AMOUNT", kWide}},
         "",
         "receivableyearreport.csv",
         "OnReportsReceivableyeartodatetotals",
         "receivables-year"},
    };
}

const std::vector<ReportLayout>& layouts() {
    static const std::vector<ReportLayout> all = makeLayouts();
    return all;
}

std::string csvField(const std::string& field) {
    if (field.find_first_of(",\"\r\n") == std::string::npos)
        return field;
    std::string quoted = "\"";
    for (char c : field) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + "\"";
}

}  // namespace

const ReportLayout& reportLayout(ReportKind kind) {
    for (const ReportLayout& layout : layouts()) {
        if (layout.kind == kind)
            return layout;
    }
    throw std::invalid_argument("unknown report " + std::to_string(static_cast<int>(kind)));
}

const std::vector<ReportKind>& allReportKinds() {
    static const std::vector<ReportKind> kinds = [] {
        std::vector<ReportKind> all;
        for (const ReportLayout& layout : layouts())
            all.push_back(layout.kind);
        return all;
    }();
    return kinds;
}

std::optional<ReportKind> reportKindFromCliName(std::string_view name) {
    for (const ReportLayout& layout : layouts()) {
        if (layout.cliName == name)
            return layout.kind;
    }
    return std::nullopt;
}

Report buildReport(pugi::xml_node document, ReportKind kind, int month) {
    switch (kind) {
        case ReportKind::Recurring:
            return recurringReport(document, month);
        case ReportKind::YearEnd:
            return yearEndReport(document);
        case ReportKind::MonthlyExpenses:
            return monthlyExpenseReport(document);
        case ReportKind::MonthlyReceivables:
            return monthlyReceivableReport(document);
        case ReportKind::ReceivablesYear:
            return receivableYearReport(document);
    }
    throw std::invalid_argument("unknown report");
}

double planAmount(const std::string& text) {
    if (text.empty() || text == "$")
        return 0.0;
    return textToAmount(text);
}

std::string csvLine(const std::vector<std::string>& fields) {
    std::string line;
    for (size_t i = 0; i < fields.size(); ++i)
        line += (i ? "," : "") + csvField(fields[i]);
    return line;
}

std::string rowsAsCsv(const Report& report) {
    std::vector<std::string> titles;
    for (const ReportColumn& column : reportLayout(report.kind).columns)
        titles.push_back(column.title);
    std::string text = csvLine(titles) + "\n";
    for (const auto& row : report.rows)
        text += csvLine(row) + "\n";
    return text;
}

std::filesystem::path reportFolder(const std::filesystem::path& documentsFolder) {
    return documentsFolder / "tallix" / "reports";
}

std::optional<std::filesystem::path> writeReportFile(const Report& report,
                                                     const std::filesystem::path& folder) {
    const std::string& name = reportLayout(report.kind).fileName;
    if (name.empty())
        return std::nullopt;
    std::filesystem::create_directories(folder);
    std::filesystem::path target = folder / name;
    writeFileAtomically(target, report.fileBytes);
    return target;
}

std::filesystem::path writePrintFile(const Report& report, const std::filesystem::path& folder) {
    if (std::optional<std::filesystem::path> own = writeReportFile(report, folder))
        return *own;
    std::filesystem::create_directories(folder);
    std::filesystem::path target = folder / reportLayout(report.kind).printFileName;
    writeFileAtomically(target, rowsAsCsv(report));
    return target;
}

bool isNotPaidCell(const Report& report, size_t row, size_t column) {
    constexpr size_t kStatusColumn = 4;
    return report.kind == ReportKind::Recurring && column == kStatusColumn &&
           row < report.rows.size() && report.rows[row].size() > column &&
           report.rows[row][column] == kNotPaid;
}

}  // namespace tallix
