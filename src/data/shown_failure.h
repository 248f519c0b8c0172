#pragma once
#include <stdexcept>
#include <string>

namespace tallix {

// A failure whose reason the handler's message shows after its own text,
// because the user has to act on it (the month and line to repair, the
// elements of a file that stand out of place).
class ShownFailure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Called from a catch block: throws the failure being handled again with
// `place` ("July", "line 4") before its reason. A ShownFailure stays one; any
// other failure becomes a std::runtime_error.
[[noreturn]] void rethrowAt(const std::string& place);

}  // namespace tallix
