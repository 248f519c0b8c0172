#pragma once
// The choices the register grid asks the user for when a cell is clicked.
// The main window answers them with the picker dialogs; widget tests put
// scripted answers in their place.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editing/cell_choices.h"

class QWidget;

namespace tallix::ui {

// The institution picker's answer.
struct BankChoice {
    enum class Outcome { Update, Canceled, Clear };
    Outcome outcome = Outcome::Canceled;
    std::string institution;
    std::string account;
};

// The description picker's answers besides a description.
inline constexpr const char* kDescriptionClear = "clear";
inline constexpr const char* kDescriptionCancel = "cancel";

class GridPickers {
  public:
    virtual ~GridPickers() = default;
    // A status word, or nothing when the picker was closed without one.
    virtual std::optional<std::string> pickStatus(const std::string& current) = 0;
    virtual BankChoice pickInstitution(const std::vector<InstitutionChoice>& choices,
                                       const std::string& institution,
                                       const std::string& account) = 0;
    // A description of the list, "clear" or "cancel".
    virtual std::string pickDescription(const std::vector<std::string>& descriptions,
                                        const std::string& current) = 0;
};

// The picker dialogs, modal over `parent`.
std::unique_ptr<GridPickers> dialogPickers(QWidget* parent);

}  // namespace tallix::ui
