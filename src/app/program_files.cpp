#include "app/program_files.h"

#include "app/data_commands.h"
#include "tallix_build.h"

namespace tallix {
namespace {

std::filesystem::path besideOrInstalled(const std::filesystem::path& beside,
                                        const std::filesystem::path& installed) {
    std::error_code ec;
    return std::filesystem::exists(beside, ec) ? beside : installed.lexically_normal();
}

}  // namespace

ProgramFiles programFilesFor(const std::filesystem::path& executableFolder) {
    const std::filesystem::path& bin = executableFolder;
    const std::filesystem::path icon = "hicolor/256x256/apps/tallix.png";
    return {besideOrInstalled(bin / "res", bin / TALLIX_INSTALLED_IMAGES),
            besideOrInstalled(bin / kHelpFile, bin / TALLIX_INSTALLED_DOCS / kHelpFile),
            besideOrInstalled(bin / "icons" / icon, bin / TALLIX_INSTALLED_ICONS / icon)};
}

}  // namespace tallix
