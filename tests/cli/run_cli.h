#pragma once
// Runs the built tallix-cli as a process and keeps what it wrote.
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/temp_dir.h"

namespace tallix::test {

struct CliRun {
    int status = -1;  // the exit status, -1 when it did not exit
    std::string out;
    std::string err;
};

inline std::string shellQuoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

// Runs tallix-cli with `arguments` (quoted for the shell), in `folder` when
// one is given.
inline CliRun runCli(const std::string& arguments, const std::filesystem::path& folder = {}) {
    TempDir dir;
    std::string command = (folder.empty() ? "" : "cd " + shellQuoted(folder) + " && ") +
                          shellQuoted(TALLIX_CLI_PATH) + " " + arguments + " >" +
                          shellQuoted(dir / "out") + " 2>" + shellQuoted(dir / "err");
    int raw = std::system(command.c_str());
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readFile(dir / "out"), readFile(dir / "err")};
}

}  // namespace tallix::test
