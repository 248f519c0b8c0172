#pragma once
// The sample year (examples/tallix2026.xml) opened in a session on 15 March
// 2026, with what the tests of the plan's maintenance read back from it.
#include <string>
#include <vector>

#include "data/structure_check.h"
#include "register/month_display.h"
#include "register/year_file.h"
#include "support/thrown.h"

namespace tallix::test {

struct SampleYear : YearFile {
    SampleYear() : YearFile({2026, 3, 15}, sourceDir() / "examples/tallix2026.xml") {}

    // The keys of the balance columns, between "B" and "Info".
    std::vector<std::string> balanceColumns() {
        std::vector<std::string> keys;
        bool after = false;
        for (pugi::xml_node column : selectAll(data(), paths::kAllRegisterColumns)) {
            const std::string key = column.attribute("column").value();
            if (key == "Info")
                break;
            if (after)
                keys.push_back(key);
            after = after || key == "B";
        }
        return keys;
    }
    // How often the saved file holds `text`.
    int occurrences(const std::string& text) const {
        const std::string bytes = fileBytes();
        int n = 0;
        for (size_t at = bytes.find(text); at != std::string::npos; at = bytes.find(text, at + 1))
            ++n;
        return n;
    }
    std::string fileBytes() const { return readFile(path); }
    void reopen() { session().openDataPath(path); }
    // The texts of a group's children from `lastyearclosing` on.
    std::vector<std::string> values(pugi::xml_node owner, size_t first) {
        std::vector<std::string> texts;
        for (size_t i = first; i < elementChildCount(owner); ++i)
            texts.push_back(childText(owner, i));
        return texts;
    }
    // Faults the structural check finds in the saved file.
    std::vector<std::string> faults() {
        std::vector<std::string> found;
        for (const std::string& line : checkFile(path))
            if (!isNotice(line))
                found.push_back(line);
        return found;
    }
    // The month as the grid shows it after a Refresh, every row joined.
    std::string grid(int m) {
        session().month = m;
        EXPECT_TRUE(Refresh(session()));
        std::string text;
        for (int r = 0; r < table().rowCount(); ++r) {
            for (int c = 0; c < table().columnCount(); ++c)
                text += cell(r, c) + '\t';
            text += '\n';
        }
        return text;
    }
};

}  // namespace tallix::test
