#pragma once
#include <string_view>

namespace tallix {

// The bytes of res/first_tallix.xml and res/blank_tallix.xml, compiled in.
std::string_view embeddedFirstIndex();
std::string_view embeddedBlankYear();

}  // namespace tallix
