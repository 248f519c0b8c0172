#pragma once
// Path prefixes of the data and index files, spelled exactly as the program
// has always written them (spacing inside the predicates included). A query is
// one of these, a key and a closing (kClose or kCloseChildren); see query.h.

namespace tallix::paths {

inline constexpr const char* kClose = "']";
inline constexpr const char* kCloseChildren = "']/*";

inline constexpr const char* kRoot = "//tallix";
inline constexpr const char* kAllContainers = "//tallix/*";
inline constexpr const char* kYear = "//tallix/year[@year='";

inline constexpr const char* kRegister = "//tallix/register";
inline constexpr const char* kAllMonths = "//tallix/register/month";
inline constexpr const char* kMonthByName = "//tallix/register/month[@month='";
inline constexpr const char* kMonthById = "//tallix/register/month[@id='";

inline constexpr const char* kRegisterColumns = "//tallix/registercolumns";
inline constexpr const char* kAllRegisterColumns = "//tallix/registercolumns/*";
inline constexpr const char* kColumn = "//tallix/registercolumns/column[@column='";
inline constexpr const char* kColumnSpaced = "//tallix/registercolumns/column[@column = '";

inline constexpr const char* kBanks =
    "//tallix/financial-institutions/financial-institution[@id='banks']";
inline constexpr const char* kCreditCards =
    "//tallix/financial-institutions/financial-institution[@id='creditcards']";
inline constexpr const char* kInstitutionSpaced =
    "//tallix/financial-institutions/financial-institution[@id = '";
inline constexpr const char* kInstitutionName =
    "//tallix/financial-institutions/financial-institution/names/name[@id='";
// Written this way round (name/names) where a card is renamed by its label.
inline constexpr const char* kCardByLabel =
    "//tallix/financial-institutions/financial-institution/name/names[@id='";

inline constexpr const char* kAllCategoriesAny = "//tallix/catagories/*";
inline constexpr const char* kAllCategories = "//tallix/catagories/category";
inline constexpr const char* kCategory = "//tallix/catagories/category[@id='";
inline constexpr const char* kExpenseInCategory = "names/name[@id = '";
inline constexpr const char* kAllExpenses = "//tallix/catagories/category/names/name";
inline constexpr const char* kAllExpensesAny = "//tallix/catagories/category/names/*";
inline constexpr const char* kExpense = "//tallix/catagories/category/names/name[@id='";

inline constexpr const char* kAllIncome = "//tallix/income/name";
inline constexpr const char* kIncome = "//tallix/income/name[@id='";

inline constexpr const char* kAllReceivables = "//tallix/receivables/name";
inline constexpr const char* kReceivable = "//tallix/receivables/name[@id = '";
inline constexpr const char* kRevenue = "//tallix/receivables/revenue";

inline constexpr const char* kRmds = "//tallix/rmds";
inline constexpr const char* kAllRmds = "//tallix/rmds/*";
inline constexpr const char* kRmd = "//tallix/rmds/rmd[@id='";

inline constexpr const char* kDescriptions = "//tallix/descriptions";

}  // namespace tallix::paths
