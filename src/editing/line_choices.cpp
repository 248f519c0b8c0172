#include "editing/line_choices.h"

namespace tallix {

bool isNoPick(const std::string& answer) {
    return answer.empty() || answer == kNoSelection || answer == kPickCanceled;
}

}  // namespace tallix
