#include "app/guard.h"

#include <cstdio>
#include <stdexcept>

namespace tallix {

std::string runtimeErrorText(std::string_view handlerName) {
    return "runtime error in " + std::string(handlerName) + "() ";
}

void logFailure(std::string_view handlerName, std::exception_ptr error) {
    std::string reason = "unknown error";
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& e) {
        reason = e.what();
    } catch (...) {
    }
    std::fprintf(stderr, "tallix: %.*s: %s\n", static_cast<int>(handlerName.size()),
                 handlerName.data(), reason.c_str());
}

}  // namespace tallix
