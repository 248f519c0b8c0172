#include "app/customers.h"

#include "data/document.h"
#include "data/node_text.h"
#include "data/query.h"

namespace tallix {

std::vector<std::string> customerNames(const Document& data) {
    std::vector<std::string> names;
    for (pugi::xml_node customer : selectAll(data.node(), paths::kAllReceivables))
        names.push_back(attributeText("id", customer));
    return names;
}

}  // namespace tallix
