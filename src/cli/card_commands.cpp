// tallix-cli card: the credit card dialog's SAVE of a new card, its rename
// and its delete without a display.
#include <optional>
#include <ostream>
#include <string>

#include "cli/commands.h"
#include "cli/terminal.h"
#include "reference/card_maintenance.h"

namespace tallix::cli {
namespace {

int addCardCommand(Arguments arguments, std::ostream& out, std::ostream& err) {
    const std::optional<std::string> title = takeOption(arguments, "--title", "a column title");
    const std::optional<std::string> lastYear = takeOption(arguments, "--last-year", "an amount");
    const std::optional<std::string> closingDay =
        takeOption(arguments, "--closing-day", "a day 1-31");
    const std::optional<std::string> dueDay = takeOption(arguments, "--due-day", "a day 1-31");
    return answeringYes(arguments, 2, out, err, [&](Session& session, Prompter&) {
        const NewCard card{arguments[1], title.value_or(""), lastYear.value_or(""),
                           closingDay.value_or(""), dueDay.value_or("")};
        const ColumnChanges columns(session);
        addCard(session, card);
        return "added card " + card.name + "; columns made: " + columns.made();
    });
}

int renameCardCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 3, out, err, [&](Session& session, Prompter&) {
        return "renamed card " + a[1] + " to " + a[2] + "; " +
               std::to_string(renameCard(session, a[1], a[2])) + " other places changed";
    });
}

int deleteCardCommand(Arguments a, std::ostream& out, std::ostream& err) {
    return answeringYes(a, 2, out, err, [&](Session& session, Prompter&) {
        const ColumnChanges columns(session);
        deleteCard(session, a[1]);
        return "deleted card " + a[1] + "; columns removed: " + columns.removed();
    });
}

}  // namespace

int runCard(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    return dispatch(
        arguments, out, err,
        {{"add", addCardCommand}, {"rename", renameCardCommand}, {"delete", deleteCardCommand}});
}

}  // namespace tallix::cli
