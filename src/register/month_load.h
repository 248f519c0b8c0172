#pragma once
// Posting the plan's automatic and recurring entries of the displayed month
// into its register once they are due.

namespace tallix {

class Session;

// Posts every due entry of the displayed month: an expense of type
// "recurring", "auto" or "Auto-Bank", or an income source of type "auto day"
// or "auto date", whose month entry is "notpaid" and whose date is on or
// before today. Each becomes a new line on its day, the entry becomes
// "posted" and the lines are renumbered. An entry whose expense (or income
// source) already has a line of its category in the month is not posted
// again, whatever its status says. Returns the number of lines posted.
int postDueEntries(Session& session);

}  // namespace tallix
