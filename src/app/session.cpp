#include "app/session.h"

#include "data/schema_names.h"
#include "data/values.h"

namespace tallix {

bool isCalendarDate(const Date& d) {
    return d.month >= 1 && d.month <= 12 && d.day >= 1 && d.day <= daysInMonth(d.month, d.year);
}

Session::Session(Environment& env, Prompter& prompter) : env_(env), prompter_(prompter) {
    today = env_.today();
    todayValid = isCalendarDate(today);
    setYear(today.year);
    month = today.month;
    firstWeekdayOfMonth = dayOfWeek(1, today.month, today.year);
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
    history.clear();
}

void Session::openDataPath(const std::filesystem::path& path) {
    fileName = path.filename().string();
    filePath = path;
    data = Document::load(path);
    history.clear();
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
