#pragma once
// The one error convention of the program: code below the command handlers
// throws; each handler runs its body through guarded(), which shows
// "runtime error in NAME() " and lets the program go on.
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "app/prompter.h"
#include "data/shown_failure.h"

namespace tallix {

std::string runtimeErrorText(std::string_view handlerName);
// Writes the reason behind a handler's failure to standard error, where a
// user or developer can find what the message box does not say.
void logFailure(std::string_view handlerName, std::exception_ptr error);

// Runs `body`; on any exception shows the handler's message and returns false.
// A ShownFailure's reason follows the message's own text.
template <typename Body>
bool guarded(Prompter& prompter, std::string_view handlerName, Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const ShownFailure& failure) {
        logFailure(handlerName, std::current_exception());
        prompter.notify(runtimeErrorText(handlerName) + failure.what());
        return false;
    } catch (...) {
        logFailure(handlerName, std::current_exception());
        prompter.notify(runtimeErrorText(handlerName));
        return false;
    }
}

}  // namespace tallix
