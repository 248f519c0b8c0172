#include <algorithm>
#include <exception>
#include <ostream>

#include "cli/commands.h"
#include "data/structure_check.h"

namespace tallix::cli {

int runCheck(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    if (arguments.size() != 1)
        return kUsage;
    const std::string& file = arguments.front();
    std::vector<std::string> faults;
    try {
        faults = checkFile(file);
    } catch (const std::exception& e) {
        // Whatever stopped the check, the file is what the user asked about.
        faults = {file + ": the check stopped early: " + e.what()};
    }
    for (const std::string& fault : faults)
        out << fault << '\n';
    out.flush();
    if (std::any_of(faults.begin(), faults.end(),
                    [](const std::string& line) { return !isNotice(line); }))
        return kFaultsFound;
    err << file << ": no faults\n";
    return kOk;
}

}  // namespace tallix::cli
