#pragma once
// The texts the expense and category dialogs show, word for word as users
// know them (their spelling and spacing included). The core shows the ones
// that belong to an operation; the dialogs show the ones about a missing
// selection before they call it.

namespace tallix {

inline constexpr const char* kRenameExpenseQuestion =
    "you are editing the name of the currently selected expense. If you change this expense "
    "name and have used this expense earlier in this year those entries will no longer "
    "function properly. Therefore, you may want to delete references to the current expense "
    "name. If not, you can change all references to the new name by selecting Yes. If you "
    "want to retain the current name in all references this year select No. If you want "
    "abandon these change select Cancel";
inline constexpr const char* kDeleteExpenseNotice =
    "You have selected to delete and expense item. If you have used this expense this year "
    "you will need to go to each month and delete each time this expense is used If is not "
    "what you want";
inline constexpr const char* kMoveExpenseQuestion =
    "You have selected a location to move the previously selected expense. Do you want to "
    "execute this move  if you select yes the expense selected for the move will be deleted "
    "from the original location an will add to the caurrently selected location";
inline constexpr const char* kMoveLinesQuestion =
    "Do you want to update the category of this expense entry in all months";
inline constexpr const char* kSelectMoveTarget = "Select another category to move this exepnse to";
inline constexpr const char* kNoExpenseToPlaceBefore =
    "You have not selected an existing expense to define where locate the new expense item "
    "will be placed. To contiue defining a new expense, click the category if where the "
    "expense is to be placed, you haven't already. Then click an existing expense to place "
    "the new expense before. Next click Add New item from the menu at the top of the dialog";
inline constexpr const char* kNoExpenseToDelete = "You have not selected a expense to delete";
inline constexpr const char* kCategoryDialogTitle = "EDIT, ADD OR DELETE A CATEGORY";
inline constexpr const char* kNewCategoryNotice =
    "You are about to create a new category.Your new category will be added to the data file "
    "along with an expense entry.The expense name will be set to xxxx. After completing the "
    "definition of the new category, select Manage>expense>new category> xxxx to set the "
    "desired properties and name for the expense";
inline constexpr const char* kRenameCategoryQuestion =
    "WARNING You are about to change a category name. ALL the expense entries and each "
    "months display items using that category will be updated to the new category. Are you "
    "sure this is what you want to do";
inline constexpr const char* kDeleteCategoryQuestion =
    "WARNING You are about to delete a category and ALL the expense entries contained in "
    "that category. Are you sure this is what you want to do";
inline constexpr const char* kNoCategoryToPlaceBefore =
    "You have not selected a location to put the new catagory...Please do this and re-select "
    "'Add New'";
inline constexpr const char* kNoCategoryToDelete =
    "You have not selected catagory to delete...Please do this and re-select 'Delete'";

// A missing expense; the expense's name follows the text.
inline constexpr const char* kPlanExpenseNotFound = "expense not found on line ";

// The name a new category's first expense is given.
inline constexpr const char* kPlaceholderExpense = "xxxx";

}  // namespace tallix
