#include "app/data_commands.h"

#include <algorithm>

#include "app/session.h"

namespace tallix {
namespace {

void openWithViewer(Session& session, const std::filesystem::path& file, const char* notFound) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
        session.prompter().notify(notFound);
        return;
    }
    if (!session.env().openWithViewer(file))
        session.prompter().notify("No program to show this file could be started. The file is " +
                                  std::filesystem::absolute(file, ec).string());
}

// Whether `path` lies inside `folder`, once both are made absolute and plain.
bool isInside(const std::filesystem::path& path, const std::filesystem::path& folder) {
    std::error_code ec;
    const std::filesystem::path p = std::filesystem::weakly_canonical(path, ec);
    const std::filesystem::path f = std::filesystem::weakly_canonical(folder, ec);
    const auto [end, rest] = std::mismatch(f.begin(), f.end(), p.begin(), p.end());
    return end == f.end();
}

}  // namespace

void displayDataFile(Session& session) {
    openWithViewer(session, session.filePath, "XML not found");
}

void openHelp(Session& session, const std::filesystem::path& helpFile) {
    openWithViewer(session, helpFile, "pdf not found");
}

std::optional<std::filesystem::path> offerSaveDataFile(Session& session) {
    std::optional<std::filesystem::path> target =
        session.prompter().pickFileToSave(session.fileName);
    if (!target || target->empty())
        return std::nullopt;
    if (isInside(*target, session.dataFolder())) {
        session.prompter().notify(kExportIntoDataFolder);
        return std::nullopt;
    }
    session.data.save(*target);
    return target;
}

}  // namespace tallix
