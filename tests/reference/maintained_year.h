#pragma once
// A copy of tests/fixtures/plan_maintenance.xml opened in a session: the
// categories Utilities (Gas, Water, Power), Car (Gas) and Empty, and in every
// month three register lines: Gas of Utilities, Gas of Car, Water of Utilities.
#include <memory>
#include <string>
#include <vector>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "data/values.h"
#include "register/month_lines.h"
#include "support/scripted.h"
#include "support/temp_dir.h"

namespace tallix::test {

class MaintainedYear {
  public:
    MaintainedYear() {
        std::filesystem::copy_file(sourceDir() / "tests/fixtures/plan_maintenance.xml", path);
        env.root = dir / "root";
        session_ = std::make_unique<Session>(env, prompter);
        session_->openDataPath(path);
    }
    Session& session() { return *session_; }
    pugi::xml_node data() { return session_->data.node(); }
    std::string fileBytes() const { return readFile(path); }
    // Reads the file back, as the next command would.
    void reopen() { session_->openDataPath(path); }

    pugi::xml_node category(const std::string& name) {
        return selectOne(data(), paths::kCategory, name);
    }
    // The fields of an expense without its months (m = 0), or its month m.
    std::vector<std::string> fields(const std::string& category, const std::string& name,
                                    int m = 0) {
        pugi::xml_node node = selectOne(this->category(category), paths::kExpenseInCategory, name);
        std::vector<pugi::xml_node> children = elementChildren(node);
        if (m)
            children = elementChildren(childAt(children.at(7), static_cast<size_t>(m - 1)));
        else
            children.pop_back();
        std::vector<std::string> texts;
        for (pugi::xml_node child : children)
            texts.push_back(nodeText(child));
        return texts;
    }
    // "expense/category" of each line of month `m`.
    std::vector<std::string> lines(int m) {
        std::vector<std::string> keys;
        for (pugi::xml_node line : monthLines(data(), monthName(m)))
            keys.push_back(childText(line, 1) + "/" + childText(line, 4));
        return keys;
    }
    std::vector<std::string> expenses(const std::string& category) {
        std::vector<std::string> names;
        for (pugi::xml_node n : elementChildren(childAt(this->category(category), 2)))
            names.push_back(n.attribute("id").value());
        return names;
    }

    TempDir dir;
    std::filesystem::path path = dir / "tallix2026.xml";
    FixedEnvironment env;
    ScriptedPrompter prompter;

  private:
    std::unique_ptr<Session> session_;
};

}  // namespace tallix::test
