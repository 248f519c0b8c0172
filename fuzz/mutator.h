#pragma once
// The mutations tallix-fuzz makes of a year file: structural ones on the
// parsed XML tree (elements swapped, dropped, copied, moved or renamed, odd
// texts and attributes, a second root) and byte-level ones on its text.
#include <cstdint>
#include <random>
#include <string>

namespace tallix::fuzz {

using Random = std::mt19937_64;

// A mutant of `original`: a few structural mutations when it parses as XML,
// and now and then (always when it does not parse) a few byte-level ones.
std::string mutate(const std::string& original, Random& random);

// The structural and the byte-level half on their own.
std::string mutateStructure(const std::string& original, Random& random);
std::string mutateBytes(const std::string& original, Random& random);

}  // namespace tallix::fuzz
