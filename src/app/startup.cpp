#include "app/startup.h"

#include "app/first_run.h"
#include "app/session.h"
#include "app/year_files.h"

namespace tallix {

bool openYearAtStartup(Session& session) {
    installMissingFiles(session.dataFolder(), session.env().documentsFolder());
    loadOrCreateIndex(session);
    std::optional<std::string> name = chooseStartupFile(session);
    if (!name)
        return false;
    session.openDataFile(*name);
    return true;
}

}  // namespace tallix
