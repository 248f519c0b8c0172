#pragma once
// A copy of a fixture year file opened in a session on a fixed date, with its
// columns resolved, as the main window has it after start-up.
#include <filesystem>
#include <memory>
#include <string>

#include "app/session.h"
#include "data/node_text.h"
#include "data/query.h"
#include "register/month_display.h"
#include "support/scripted.h"
#include "support/temp_dir.h"

namespace tallix::test {

inline std::filesystem::path fixture(const std::string& name) {
    return sourceDir() / "tests" / "fixtures" / name;
}

class YearFile {
  public:
    explicit YearFile(Date today,
                      const std::filesystem::path& source = fixture("march_register.xml"))
        : path(dir / source.filename().string()) {
        std::filesystem::copy_file(source, path);
        env.date = today;
        env.root = dir / "root";
        session_ = std::make_unique<Session>(env, prompter);
        session_->openDataPath(path);
        if (!loadColumns(*session_))
            throw std::runtime_error("the fixture's columns do not resolve");
    }

    Session& session() { return *session_; }
    pugi::xml_node data() { return session_->data.node(); }
    const GridTable& table() { return session_->view.table; }
    std::string cell(int row, int column) { return table().cell(row, column); }

    // Shows month `m` as its month button does.
    bool show(int m) {
        session_->month = m;
        session_->view.rememberedRow = 31;
        return displayMonth(*session_, std::to_string(m));
    }

    pugi::xml_node month(const std::string& name) {
        return selectOne(data(), paths::kMonthByName, name);
    }
    // The month entry `m` (1-12) of a plan entry found by `prefix` and `id`.
    pugi::xml_node planMonth(const char* prefix, const std::string& id, size_t monthsChild, int m) {
        return childAt(childAt(requireOne(data(), prefix, id), monthsChild), m - 1);
    }

    TempDir dir;
    std::filesystem::path path;
    FixedEnvironment env;
    ScriptedPrompter prompter;

  private:
    std::unique_ptr<Session> session_;
};

// Grid columns of march_register.xml.
namespace col {
inline constexpr int kDay = 1, kDate = 2, kLine = 3, kExpense = 4, kAmount = 5, kCheck = 6,
                     kStatus = 8, kInstitution = 10, kAccount = 11, kB = 12, kCkRegister = 13,
                     kCkBank = 14, kCkOutstanding = 15, kSvBank = 16, kVisa = 17, kAmex = 18,
                     kInfo = 19, kAccumulate = 20, kType = 21;
}  // namespace col

}  // namespace tallix::test
