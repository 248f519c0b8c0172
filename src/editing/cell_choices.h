#pragma once
// What the register grid lets the user change in place and the choices its
// pickers offer: which cells take typing, where Tab goes next, the status
// words, the institutions with their accounts, and writing a pick into the
// row's line.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

namespace tallix {

class Session;
struct RegisterView;

// Grid columns left of this one are never typed into.
inline constexpr int kFirstEditableColumn = 5;

// A cell of a line (not the starting row) in an editable column: column 5 or
// further right, but not one of the balance columns between Account and Info.
bool isEditableCell(const RegisterView& view, int row, int column);

// The editable cell after (forward) or before (row, column), wrapping to the
// next or previous line; nothing past the last or before the first line.
std::optional<std::pair<int, int>> nextEditableCell(const RegisterView& view, int row, int column,
                                                    bool forward);

// The words a line's Status may take, in the order the status picker lists them.
const std::vector<std::string>& statusWords();

struct InstitutionChoice {
    std::string name;
    std::vector<std::string> accounts;
};
inline constexpr const char* kCreditCardsChoice = "creditcards";

// The banks with their accounts, in file order, then "creditcards" with the
// names of the cards.
std::vector<InstitutionChoice> institutionChoices(pugi::xml_node data);

// Each writes the grid table's cells and the line of `row` in the document,
// then saves the data file. They throw when the row has no line.
void writeStatus(Session& session, int row, const std::string& status);
void writeInstitution(Session& session, int row, const std::string& institution,
                      const std::string& account);
void writeDescription(Session& session, int row, const std::string& description);

}  // namespace tallix
