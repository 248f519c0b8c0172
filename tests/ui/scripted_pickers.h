#pragma once
// Scripted answers for every picker of the register grid.
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "support/scripted_choices.h"
#include "ui/register_grid_pickers.h"

namespace tallix::test {

// Answers the grid's pickers from queues and remembers what they were shown.
// A question nobody scripted fails the handler, which the prompter records.
class ScriptedPickers : public ScriptedLineChoices<ui::GridPickers> {
  public:
    std::deque<std::optional<std::string>> statuses;
    std::deque<ui::BankChoice> banks;
    std::vector<InstitutionChoice> offeredInstitutions;

    std::optional<std::string> pickStatus(const std::string&) override {
        opened.push_back("status");
        return next(statuses);
    }
    ui::BankChoice pickInstitution(const std::vector<InstitutionChoice>& choices,
                                   const std::string&, const std::string&) override {
        opened.push_back("institution");
        offeredInstitutions = choices;
        return next(banks);
    }
};

}  // namespace tallix::test
