#pragma once

namespace tallix {

class Session;

// The file side of start-up: installs what a first run lacks, loads (or
// creates) the index, chooses the year's data file, asking where the index
// has none, and opens it. Returns false when the user chose no file: they
// were told so, and the program closes. Throws on failure; the caller's
// guard reports it.
bool openYearAtStartup(Session& session);

}  // namespace tallix
