#include "app/environment.h"

#include <chrono>

namespace tallix {

long long Environment::now() const {
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
}

}  // namespace tallix
