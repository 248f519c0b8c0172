#include "app/data_commands.h"

#include "app/session.h"

namespace tallix {
namespace {

void openFromWorkingDirectory(Session& session, const std::filesystem::path& file,
                              const char* notFound) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
        session.prompter().notify(notFound);
        return;
    }
    // Any other failure of the viewer is not reported.
    session.env().openWithViewer(file);
}

}  // namespace

void displayDataFile(Session& session) {
    openFromWorkingDirectory(session, session.fileName, "XML not found");
}

void openHelp(Session& session) {
    openFromWorkingDirectory(session, kHelpFile, "pdf not found");
}

void offerSaveDataFile(Session& session) {
    // The answer is deliberately dropped.
    (void)session.prompter().pickFileToSave(session.fileName);
}

}  // namespace tallix
