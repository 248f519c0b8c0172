#pragma once
// One input through the program as a user's year file goes through it: the
// load, the structural check, every month shown, updated and refreshed, Update
// all months, and every report with its file, all in a folder of its own.
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace tallix::fuzz {

struct Outcome {
    // What broke a rule the program keeps whatever a file holds: an exception
    // that escaped the command handlers, a file that failed to load but was
    // written all the same.
    std::vector<std::string> problems;
    // Hashes of what the program said (notices, check faults, the load's
    // reason), digits left out; a mutant that makes it say something new is
    // worth mutating further.
    std::set<std::uint64_t> features;
};

// Writes `bytes` as the year file tallix2026.xml into `folder` (emptied
// first) and runs it.
Outcome runInput(const std::string& bytes, const std::filesystem::path& folder);

std::uint64_t hashText(const std::string& text);

}  // namespace tallix::fuzz
