#include "app/first_run.h"

#include "app/embedded_templates.h"
#include "app/session.h"
#include "data/atomic_file.h"
#include "data/schema_names.h"

namespace tallix {
namespace {

void writeIfMissing(const std::filesystem::path& file, std::string_view bytes) {
    if (!std::filesystem::exists(file))
        writeFileAtomically(file, bytes);
}

}  // namespace

std::filesystem::path localBackupFolder(const std::filesystem::path& documentsFolder) {
    return documentsFolder / "tallix" / "backup";
}

void installMissingFiles(const std::filesystem::path& dataFolder,
                         const std::filesystem::path& documentsFolder) {
    std::filesystem::create_directories(dataFolder);
    writeIfMissing(dataFolder / std::string(schema::kFirstIndexFile), embeddedFirstIndex());
    writeIfMissing(dataFolder / std::string(schema::kBlankYearFile), embeddedBlankYear());
    std::filesystem::create_directories(localBackupFolder(documentsFolder));
}

// An index that exists but cannot be read is kept beside the new one, so a
// hand-edited file with a typo can still be repaired.
static void keepUnreadableIndex(const std::filesystem::path& index) {
    if (!std::filesystem::exists(index))
        return;
    std::filesystem::path aside = index;
    aside += ".unreadable";
    for (int n = 2; std::filesystem::exists(aside); ++n) {
        aside = index;
        aside += ".unreadable" + std::to_string(n);
    }
    std::filesystem::rename(index, aside);
}

void loadOrCreateIndex(Session& session) {
    session.index = Document::load(session.indexPath());
    if (!session.index.loadFailed())
        return;
    keepUnreadableIndex(session.indexPath());
    session.index = Document::load(session.inDataFolder(std::string(schema::kFirstIndexFile)));
    session.saveIndex();
}

}  // namespace tallix
