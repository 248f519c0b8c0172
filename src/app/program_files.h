#pragma once
// The program's own files: its button images, its help and its icon. They are
// found from the folder of the executable, never from the working folder: in
// the build folder they lie beside it (res/, tallix_help.pdf, icons/); an
// installed program in <prefix>/bin keeps them under <prefix>/share
// (docs/install-layout.md).
#include <filesystem>

namespace tallix {

struct ProgramFiles {
    std::filesystem::path imageFolder;  // the picture-button images
    std::filesystem::path helpFile;     // tallix_help.pdf
    std::filesystem::path iconFile;     // the program's icon, 256 pixels square
};

// Each file in the build folder's place when it is there, otherwise in the
// installed place (where it is said to be missing from when it is not there
// either).
ProgramFiles programFilesFor(const std::filesystem::path& executableFolder);

}  // namespace tallix
