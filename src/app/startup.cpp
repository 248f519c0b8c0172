#include "app/startup.h"

#include "app/first_run.h"
#include "app/session.h"
#include "app/year_files.h"
#include "data/atomic_file.h"

namespace tallix {

bool openYearAtStartup(Session& session) {
    installMissingFiles(session.dataFolder(), session.env().documentsFolder());
    removeStaleTempFiles(session.dataFolder());  // left by saves that were killed
    loadOrCreateIndex(session);
    std::optional<std::string> name = chooseStartupFile(session);
    if (!name)
        return false;
    session.openDataFile(*name);
    return true;
}

}  // namespace tallix
