#include "bench_support.h"

#include <unistd.h>

#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <system_error>

#include "data/values.h"
#include "register/month_display.h"
#include "register/month_lines.h"

namespace tallix::bench {
namespace {

class Folder {
  public:
    Folder() {
        path_ = std::filesystem::temp_directory_path() /
                ("tallix-bench-" + std::to_string(static_cast<long>(::getpid())));
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

SyntheticYearOptions optionsFor(const std::string& name) {
    SyntheticYearOptions o;
    if (name == "typical") {
        o.linesPerMonth = 60;
        o.expenses = 80;
        o.banks = 3;
        o.accounts = 4;
        o.cards = 2;
    } else if (name == "heavy") {
        o.linesPerMonth = 500;
        o.expenses = 400;
        o.banks = 4;
        o.accounts = 10;
        o.cards = 5;
    } else if (name == "long") {
        o = optionsFor("typical");
        o.linesPerMonth = 500;
    } else {
        throw std::invalid_argument("no scenario named " + name);
    }
    return o;
}

}  // namespace

void CountingPrompter::notify(const std::string& text) {
    if (notices_++ == 0)
        first_ = text;
}

Answer CountingPrompter::askYesNo(const std::string&) {
    ++questions_;
    return Answer::No;
}

Answer CountingPrompter::askYesNoCancel(const std::string&) {
    ++questions_;
    return Answer::Cancel;
}

const std::filesystem::path& benchFolder() {
    static const Folder folder;
    return folder.path();
}

const Scenario& scenario(const std::string& name) {
    static std::map<std::string, std::unique_ptr<Scenario>> made;
    auto found = made.find(name);
    if (found != made.end())
        return *found->second;
    auto s = std::make_unique<Scenario>();
    s->name = name;
    s->options = optionsFor(name);
    s->file = benchFolder() / (name + ".xml");
    s->text = makeSyntheticYear(s->options, &s->summary);
    std::ofstream out(s->file, std::ios::binary | std::ios::trunc);
    out.write(s->text.data(), static_cast<std::streamsize>(s->text.size()));
    out.close();
    if (!out)
        throw std::runtime_error("could not write " + s->file.string());
    return *made.emplace(name, std::move(s)).first->second;
}

BenchSession::BenchSession(const Scenario& scenario)
    : env(Date{scenario.options.year, 12, 31}, benchFolder()),
      session(env, prompter),
      scenario_(scenario) {
    // The session saves into its own copy, so benchmarks never rewrite the
    // generated file that the load benchmark reads.
    const std::filesystem::path own = benchFolder() / (scenario.name + "-session.xml");
    std::filesystem::copy_file(scenario.file, own,
                               std::filesystem::copy_options::overwrite_existing);
    session.openDataPath(own);
    if (session.data.loadFailed())
        throw std::runtime_error("the generated year did not load: " + session.data.loadError());
    session.month = kShownMonth;
    if (!loadColumns(session))
        throw std::runtime_error("the generated year's columns: " + prompter.firstNotice());
}

void BenchSession::freshCopy() {
    session.data = Document::parse(scenario_.text, session.filePath);
}

int BenchSession::monthLineCount() const {
    return static_cast<int>(monthLines(session.data.node(), monthName(session.month)).size());
}

}  // namespace tallix::bench
