// The receivable reports: each customer's items added up per month and for
// the year.
#include "data/node_text.h"
#include "data/query.h"
#include "data/schema_names.h"
#include "data/values.h"
#include "reports/reports.h"

namespace tallix {
namespace {

using schema::kCustomerMonths;

constexpr size_t kCustomerNumber = 0;
constexpr size_t kItemAmount = 1;

struct CustomerTotals {
    std::string name;
    std::string number;
    std::vector<double> months;
    double year = 0.0;
};

std::vector<CustomerTotals> customerTotals(pugi::xml_node document) {
    std::vector<CustomerTotals> all;
    for (pugi::xml_node customer : selectAll(document, paths::kAllReceivables)) {
        CustomerTotals totals{attributeText("id", customer), childText(customer, kCustomerNumber),
                              std::vector<double>(12, 0.0), 0.0};
        std::vector<pugi::xml_node> months = elementChildren(childAt(customer, kCustomerMonths));
        for (size_t m = 0; m < months.size() && m < 12; ++m) {
            for (pugi::xml_node item : elementChildren(months[m]))
                totals.months[m] += planAmount(childText(item, kItemAmount));
            totals.year += totals.months[m];
        }
        all.push_back(std::move(totals));
    }
    return all;
}

}  // namespace

Report monthlyReceivableReport(pugi::xml_node document) {
    Report report{ReportKind::MonthlyReceivables, {}, {}};
    report.fileBytes = "CUSTOMER,CUSTOMER #";
    for (int m = 1; m <= 12; ++m)
        report.fileBytes += "," + monthName(m);
    report.fileBytes += "\n";
    for (const CustomerTotals& customer : customerTotals(document)) {
        std::vector<std::string> cells = {customer.name, customer.number};
        for (double amount : customer.months)
            cells.push_back(amountToText(amount));
        report.fileBytes += csvLine(cells) + "\n";
        report.rows.push_back(std::move(cells));
    }
    return report;
}

Report receivableYearReport(pugi::xml_node document) {
    Report report{ReportKind::ReceivablesYear, {}, {}};
    for (const CustomerTotals& customer : customerTotals(document))
        report.rows.push_back({customer.name, amountToText(customer.year)});
    return report;
}

}  // namespace tallix
