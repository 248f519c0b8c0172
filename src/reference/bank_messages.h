#pragma once
// The texts the bank, column-width and credit card dialogs show, word for
// word as users know them (their spelling and spacing included).

namespace tallix {

inline constexpr const char* kBankDialogTitle = "Bank or institution";
inline constexpr const char* kNewBankInstructions =
    "You have selected to add a new bank. First select ' ADD A CHECK REGISTER COLUMN ' if you "
    "want register column. If you selected to have a register column then decide whether or "
    "not you want a pending column. This column will show the deference between the register "
    "balance and the bank balance. Next enter the bank/institution information. First enter "
    "the bank and account name. Next enter the column name of register (if selected), bank "
    "balance and outstanding dollars(if selected).  Once you have filled in the name for each "
    "column add the starting balance, click APPLY.  You will then be given a change to correct "
    "any typeOs in the data you just entered Next you will then be asked if you want to add "
    "another account, Then when you are happy with the account(s) click SAVE AND EXIT button "
    "to finish. Your new bank entry is ready to use by anyexpense you have defined";
inline constexpr const char* kNewAccountInstructions =
    "You have selected to add an account to an existing bank. First select the bank from your "
    "list of columns below where you want the new account columns to appear. ";
inline constexpr const char* kTypoQuestion =
    "Check the data you have just entered for typOs \n Click YES if you want to contiue or NO "
    "to go back and change your entries";
inline constexpr const char* kCannotDeleteFixedRow = "You cannot delete the item you have selected";
inline constexpr const char* kDeleteAccountQuestion =
    "you have selected to delete an account. If you have used this account for to post an "
    "expense in your tallix, the expense will no longer have an account to credit or debit. Do "
    "you want to continue to delete this account";
inline constexpr const char* kKeepAccountNotice =
    "You chosen to not delete the selected bank account. You may want to edit and alter the "
    "accounts name. If that is the case after you exit from here select account edit from the "
    "tallix menu";
inline constexpr const char* kDeleteBankQuestion =
    "you have selected to delete a bank. Be aware that if you have used this bank for to post "
    "an expense in your tallix, the expense will no longer have a bank to credit or debit. Do "
    "you want to continue to delete this bank";
inline constexpr const char* kCannotEditFixedRow = "you cannot edit this entry";
inline constexpr const char* kRenameBankQuestion =
    "You are about to change the name of an existing bank/institution...\nyou need to aware "
    "that if you have used that bank/imstitution name in an expense,income or receivable entry "
    "that those references to the old  bank/institution  name will be updated to the new "
    "name\nSelecting yes will automatically cause this to happen. If this is not your "
    "intention select NO to reject the change";
inline constexpr const char* kRenameAccountQuestion =
    "You are about to change the name of an existing account...\nyou need to aware that if "
    "you have used that account name in an expense,income or receivable entry that those "
    "references to the old account name will be updated to the new name \nSelecting yes will "
    "automatically cause this to happen. If this is not your intention select NO to reject "
    "this change";
inline constexpr const char* kColumnWidthText =
    "You have selected a column...Below is the width of that column. You can increase the "
    "width amount to give more sapce for the data that is displayed in that column.";
inline constexpr const char* kNoCardToDelete =
    "You failed to select a credit card to delete. try again after selecting";

// The fixed rows of the bank tree, under an account, and of the card tree.
inline constexpr const char* kCheckRegisterRow = "CHECK REGISTER";
inline constexpr const char* kBankBalanceRow = "BANK BALANCE";
inline constexpr const char* kClosingValuesRow = "CLOSING VALUES";
inline constexpr const char* kColumnTitleRow = "COLUMN TITLE";
inline constexpr const char* kClosingDayRow = "CLOSING DAY";
inline constexpr const char* kDueDayRow = "DUE DAY";

}  // namespace tallix
