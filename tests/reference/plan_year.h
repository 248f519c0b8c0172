#pragma once
// tests/fixtures/plan_year.xml: a small year's plan (the banks, the
// categories and their expenses, the income sources and the customers) with
// the gaps and odd corners a hand-edited file has, comments included.
#include <pugixml.hpp>

#include "support/temp_dir.h"

namespace tallix::test {

inline bool loadPlanYear(pugi::xml_document& doc) {
    const std::string file = (sourceDir() / "tests/fixtures/plan_year.xml").string();
    return doc.load_file(file.c_str(), pugi::parse_default | pugi::parse_comments);
}

}  // namespace tallix::test
