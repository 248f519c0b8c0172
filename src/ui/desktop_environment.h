#pragma once
#include "app/environment.h"
#include "app/program_files.h"

namespace tallix::ui {

// The machine as the desktop program sees it: the local clock, the per-user
// data and Documents folders (or a data root given on the command line), a
// volume labelled "Google Drive" and the system viewer.
class DesktopEnvironment : public Environment {
  public:
    explicit DesktopEnvironment(std::filesystem::path dataRootOverride = {});

    Date today() const override;
    std::filesystem::path dataRoot() const override;
    std::filesystem::path documentsFolder() const override;
    std::optional<std::filesystem::path> cloudDriveRoot() const override;
    bool openWithViewer(const std::filesystem::path& file) override;

  private:
    std::filesystem::path dataRootOverride_;
};

// The program's images, help and icon, found from the running executable's
// folder (QCoreApplication::applicationDirPath()).
ProgramFiles programFiles();

}  // namespace tallix::ui
