#pragma once
// Answers for the register's pickers and popups, from queues, recording what
// was asked. `Base` is the core's LineChoices or an interface built on it.
#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "editing/line_choices.h"

namespace tallix::test {

template <typename Base = LineChoices>
class ScriptedLineChoices : public Base {
  public:
    std::deque<ExpensePick> expensePicks;
    std::deque<std::string> customers;
    std::deque<std::optional<TransferAnswer>> transfers;  // nullopt: CANCEL
    std::deque<RowOperationChoice> rowOperations;
    std::deque<int> moveTargets;
    std::deque<std::string> descriptionAnswers;

    // What was opened, in order: "expense 3", "expense 4", "customer",
    // "transfer", "row operations", "move", "description".
    std::vector<std::string> opened;
    std::vector<std::string> offeredDescriptions;

    ExpensePick pickExpense(int mode) override {
        opened.push_back("expense " + std::to_string(mode));
        return next(expensePicks);
    }
    std::string pickCustomer() override {
        opened.push_back("customer");
        return next(customers);
    }
    std::optional<TransferAnswer> pickTransfer() override {
        opened.push_back("transfer");
        return next(transfers);
    }
    RowOperationChoice pickRowOperation(int) override {
        opened.push_back("row operations");
        return next(rowOperations);
    }
    int pickMoveTarget() override {
        opened.push_back("move");
        return next(moveTargets);
    }
    std::string pickDescription(const std::vector<std::string>& list, const std::string&) override {
        opened.push_back("description");
        offeredDescriptions = list;
        return next(descriptionAnswers);
    }

  protected:
    template <typename T>
    static T next(std::deque<T>& queue) {
        if (queue.empty())
            throw std::logic_error("unexpected picker");
        T answer = queue.front();
        queue.pop_front();
        return answer;
    }
};

}  // namespace tallix::test
