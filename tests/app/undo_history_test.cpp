// Edit > Undo after the plan maintenance: what comes back, in which order,
// and what is never overwritten by it.
#include <gtest/gtest.h>

#include "app/undo_history.h"
#include "reference/expense_maintenance.h"
#include "reference/expense_order.h"
#include "reference/maintained_year.h"

namespace tallix {
namespace {

using test::MaintainedYear;

TEST(Undo, TakesBackTheOperationsLastFirstAndSavesEachTime) {
    MaintainedYear year;
    const std::string original = year.session().data.serialize();
    EXPECT_EQ(undo(year.session()), std::nullopt);
    deleteExpense(year.session(), year.prompter, "Utilities", "Water");
    const std::string afterDelete = year.fileBytes();
    moveExpenseUp(year.session(), "Utilities", "Power");
    EXPECT_EQ(year.session().history.nextLabel(), "Move expense Power up");

    EXPECT_EQ(undo(year.session()), "Move expense Power up");
    EXPECT_EQ(year.fileBytes(), afterDelete);
    EXPECT_EQ(undo(year.session()), "Delete expense Water");
    EXPECT_EQ(year.fileBytes(), original);
    EXPECT_EQ(year.expenses("Utilities"), std::vector<std::string>({"Gas", "Water", "Power"}));
    EXPECT_EQ(undo(year.session()), std::nullopt);
}

TEST(Undo, AsksBeforeTakingBackLaterChangesThatWereNotRecorded) {
    MaintainedYear year;
    deleteExpense(year.session(), year.prompter, "Utilities", "Water");
    setChildText(monthLines(year.data(), "May")[0], 2, "99.00");  // a cell edit
    const std::string edited = year.session().data.serialize();
    year.prompter.answers = {Answer::No, Answer::Yes};
    EXPECT_EQ(undo(year.session()), std::nullopt);
    EXPECT_EQ(year.session().data.serialize(), edited);
    EXPECT_EQ(year.prompter.shown.back(),
              std::string(kUndoLosesLaterChanges) + "Delete expense Water?");
    EXPECT_EQ(undo(year.session()), "Delete expense Water");
    EXPECT_EQ(year.expenses("Utilities").size(), 3u);
}

TEST(Undo, KeepsTwentyNeverWritesAnotherFileAndRecordsNoFailedSave) {
    MaintainedYear year;
    for (int i = 0; i < 25; ++i)
        moveExpenseDown(year.session(), "Utilities", i % 2 ? "Water" : "Gas");
    EXPECT_EQ(year.session().history.size(), UndoHistory::kDepth);
    const std::string document = year.session().data.serialize();
    year.session().filePath = year.dir / "next" / "tallix2027.xml";  // a save there fails
    EXPECT_ANY_THROW(deleteExpense(year.session(), year.prompter, "Utilities", "Water"));
    EXPECT_EQ(year.session().data.serialize(), document);
    EXPECT_EQ(undo(year.session()), std::nullopt);  // kept for tallix2026.xml
    EXPECT_EQ(year.session().history.size(), 0u);
}

}  // namespace
}  // namespace tallix
