#include "app/session.h"

#include "data/schema_names.h"
#include "data/values.h"

namespace tallix {

Session::Session(Environment& env, Prompter& prompter) : env_(env), prompter_(prompter) {
    Date today = env_.today();
    setYear(today.year);
    month = today.month;
}

std::filesystem::path Session::dataFolder() const {
    return env_.dataRoot() / "tallix";
}

std::filesystem::path Session::indexPath() const {
    return dataFolder() / std::string(schema::kIndexFile);
}

std::filesystem::path Session::inDataFolder(const std::string& bareName) const {
    return dataFolder() / bareName;
}

void Session::openDataFile(const std::string& bareName) {
    fileName = bareName;
    filePath = inDataFolder(bareName);
    data = Document::load(filePath);
}

void Session::saveData() const {
    data.save(filePath);
}

void Session::saveIndex() const {
    index.save(indexPath());
}

void Session::setYear(int newYear) {
    year = newYear;
    yearText = std::to_string(newYear);
}

std::string Session::title() const {
    return monthName(month) + " " + yearText;
}

}  // namespace tallix
