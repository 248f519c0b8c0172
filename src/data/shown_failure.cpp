#include "data/shown_failure.h"

#include <exception>

namespace tallix {

void rethrowAt(const std::string& place) {
    try {
        throw;
    } catch (const ShownFailure& failure) {
        throw ShownFailure(place + ": " + failure.what());
    } catch (const std::exception& failure) {
        throw std::runtime_error(place + ": " + failure.what());
    }
}

}  // namespace tallix
