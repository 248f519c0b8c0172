#pragma once
#include <string>

namespace tallix::test {

// What the exception of type E that `run` throws says; "(nothing thrown)"
// when it throws none. Another exception fails the test that calls it.
template <typename E, typename Run>
std::string thrown(Run run) {
    try {
        run();
    } catch (const E& e) {
        return e.what();
    }
    return "(nothing thrown)";
}

}  // namespace tallix::test
