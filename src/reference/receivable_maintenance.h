#pragma once
// The receivables dialog's operations on customers: a new customer copied
// from another, the customer's fields saved, MOVE UP / MOVE DOWN, APPLY and
// APPLY TO ALL MONTHS on one receivable item, an item added to a month, and
// delete. Each checks what it is given first (an empty or taken name, an
// amount or due date that is not one, a customer, month or item that is not
// in the file throw PlanRefusal and change nothing), changes the document as
// one step Edit > Undo can take back, and saves the year file once.
#include <optional>
#include <string>

#include <pugixml.hpp>

#include "reference/month_entries.h"

namespace tallix {

class Session;

struct CustomerFields {
    std::string number, institution, account, repeatingAmount;
};

// SAVE THE NEW CUSTOMER: a copy of `before` named `name` with `fields`, its
// months cut down by keepNewCustomerItems, inserted before `before`.
void saveNewCustomer(Session& session, const std::string& before, const std::string& name,
                     const CustomerFields& fields);

// What a new customer keeps of the items it was copied with, in one month:
// the first item becomes the placeholder ("DUMMY" and "0" in every value),
// then the positions 1, 2, 3 ... up to the starting count less two are
// visited in turn, each time removing the item that then stands there in the
// shrinking list; a position past the end of the list is passed over. Of
// two items both stay; of three or four, the first and the third; of five or
// six, the first, third and fifth.
void keepNewCustomerItems(pugi::xml_node month);

// SAVE ABOVE CHANGES: the name and the four fields. A new name is carried
// into the register lines of the twelve months that name the customer.
// Returns the number of lines renamed.
int saveCustomerChanges(Session& session, const std::string& customer, const std::string& newName,
                        const CustomerFields& fields);

bool moveCustomerUp(Session& session, const std::string& customer);
bool moveCustomerDown(Session& session, const std::string& customer);

// APPLY on item `item` (from 0) of month `month` (1-12): AMOUNT, DATE PAID,
// DUE DATE, STATUS and CHECK #. APPLY TO ALL MONTHS writes the item at the
// same place in each month from `month` to December that has one (see
// writeFromMonthOn); months with fewer items are passed over.
void applyToItem(Session& session, const std::string& customer, int month, int item,
                 const MonthValues& values);
void applyItemToAllMonths(Session& session, const std::string& customer, int month, int item,
                          const MonthValues& values);

// Add item: appends to month `month` of the customer a copy of the
// receivables template (`revenue`), its values as the template holds them.
// Returns the new item's place (from 0).
int addReceivableItem(Session& session, const std::string& customer, int month);

// Removes the customer, without a question.
void deleteCustomer(Session& session, const std::string& customer);

inline constexpr const char* kReceivableNotFound = "Receivable not found on line ";
inline constexpr const char* kNoReceivableToDelete = "You have not selected a Receivable to delete";
inline constexpr const char* kNoReceivableToPlaceBefore =
    "You have not selected an existing Receivable to define the location for the new Receivable "
    "item. To contiue defining a new Receivable, click an existing Receivable name, then click "
    "Add New item from the menu at the top of the dialog.  Next populate the displayed boxes "
    "with the desired data to define this new receivable, then click the  SAVE THE NEW "
    "CUSTOMER button.";
inline constexpr const char* kPlaceholderItem = "DUMMY";

}  // namespace tallix
