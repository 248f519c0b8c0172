#include "app/startup.h"

#include "app/first_run.h"
#include "app/session.h"
#include "app/year_files.h"

namespace tallix {

void openYearAtStartup(Session& session) {
    installMissingFiles(session.dataFolder(), session.env().documentsFolder());
    loadOrCreateIndex(session);
    session.openDataFile(chooseStartupFile(session));
}

}  // namespace tallix
