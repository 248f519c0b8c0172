// tallix-cli find: Edit > Find without a display.
#include <ostream>

#include "cli/commands.h"
#include "data/document.h"
#include "data/values.h"
#include "register/line_search.h"

namespace tallix::cli {

int runFind(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() != 2)
        return kUsage;
    Document document = Document::load(arguments[0]);
    if (document.loadFailed()) {
        err << "tallix-cli: " << arguments[0] << " could not be read\n";
        return kFailed;
    }
    const std::vector<FoundLine> found = findLines(document.node(), arguments[1]);
    out << "MONTH\tDAY\tLINE\tEXPENSE\tAMOUNT\tSTATUS\n";
    for (const FoundLine& line : found)
        out << monthName(line.month) << '\t' << line.day << '\t' << line.line << '\t'
            << line.expense << '\t' << line.amount << '\t' << line.status << '\n';
    err << found.size() << " lines found\n";
    return found.empty() ? kFaultsFound : kOk;
}

}  // namespace tallix::cli
