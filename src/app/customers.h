#pragma once
#include <string>
#include <vector>

namespace tallix {

class Document;

// The customers (receivables) of the year in file order: the Customers menu.
std::vector<std::string> customerNames(const Document& data);

// The Customers menu's commands start here, one per customer.
inline constexpr int kFirstCustomerCommand = 2000;
inline constexpr int kLastCustomerCommand = 3000;

}  // namespace tallix
