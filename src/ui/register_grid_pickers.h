#pragma once
// The choices the register grid asks the user for when a cell is clicked.
// The main window answers them with the picker dialogs; widget tests put
// scripted answers in their place.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editing/cell_choices.h"
#include "editing/line_choices.h"

class QTableView;

namespace tallix {
class Session;
}

namespace tallix::ui {

// The institution picker's answer.
struct BankChoice {
    enum class Outcome { Update, Canceled, Clear };
    Outcome outcome = Outcome::Canceled;
    std::string institution;
    std::string account;
};

class GridPickers : public LineChoices {
  public:
    // A status word, or nothing when the picker was closed without one.
    virtual std::optional<std::string> pickStatus(const std::string& current) = 0;
    virtual BankChoice pickInstitution(const std::vector<InstitutionChoice>& choices,
                                       const std::string& institution,
                                       const std::string& account) = 0;
};

// The picker dialogs, modal over the register grid, showing the session's
// year file.
std::unique_ptr<GridPickers> dialogPickers(QTableView* grid, Session& session);

}  // namespace tallix::ui
