# Writes a C++ source holding the bytes of the two bundled templates.
function(embed_as_array VAR FILE)
    file(READ ${FILE} HEX HEX)
    string(LENGTH "${HEX}" HEXLEN)
    math(EXPR COUNT "${HEXLEN} / 2")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," BYTES "${HEX}")
    set(${VAR} "${BYTES}" PARENT_SCOPE)
    set(${VAR}_SIZE ${COUNT} PARENT_SCOPE)
endfunction()

embed_as_array(FIRST_BYTES ${FIRST})
embed_as_array(BLANK_BYTES ${BLANK})
file(WRITE ${OUT}
"// Generated at build time from res/first_tallix.xml and res/blank_tallix.xml.
#include \"app/embedded_templates.h\"

namespace tallix {
namespace {
const unsigned char kFirst[] = {${FIRST_BYTES}};
const unsigned char kBlank[] = {${BLANK_BYTES}};
}  // namespace

std::string_view embeddedFirstIndex() {
    return {reinterpret_cast<const char*>(kFirst), ${FIRST_BYTES_SIZE}};
}
std::string_view embeddedBlankYear() {
    return {reinterpret_cast<const char*>(kBlank), ${BLANK_BYTES_SIZE}};
}
}  // namespace tallix
")
