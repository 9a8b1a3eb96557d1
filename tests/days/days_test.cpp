// Whole days: each folder beside this file but `usual` is a day of the usual shop, with the
// operator's answers and what the run must leave. usual/about.txt says how to read it.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "app/start_up.h"
#include "localcompany/local_company.h"
#include "platform/database/sqlite_engine.h"
#include "platform/text.h"
#include "tests/days/shop.h"
#include "tests/days/texts.h"
#include "tests/support/platform/fixed_clock.h"
#include "tests/support/platform/temp_folder.h"

namespace fs = std::filesystem;

namespace {

const fs::path kDays = fs::absolute("days");

// Answers from a table of questions and answers, in its order, and writes down all there is to see.
class Bookkeeper : public platform::Operator {
  public:
    explicit Bookkeeper(fs::path answers) : file_(std::move(answers)) {}

    void ExpectNoAnswersLeft() const {
        if (next_ < answers_.size()) ADD_FAILURE_AT(file_.c_str(), NextLine()) << "not asked";
    }

    void Show(const platform::Notice& notice) override { log << "[OK] " << notice.text << '\n'; }

    platform::Answer Ask(const platform::Question& question) override {
        const std::string answer = AnswerTo(question.text);
        log << '[' << answer << "] " << question.text << '\n';
        return answer == "ja" ? platform::Answer::Yes : platform::Answer::No;
    }

    std::string Prompt(const platform::InputRequest& request) override {
        const std::string answer = AnswerTo(request.text);
        log << '[' << (request.isPassword ? "passord" : answer) << "] " << request.text << '\n';
        return answer;
    }

    void ShowStatusLine(std::string_view line) override { log << line << '\n'; }
    void DayEndCommandStarted(std::string_view command) override {
        log << "[startet] " << command << '\n';
    }
    void ReportFatal(const platform::RuntimeError& error) override {
        log << "Run-time error '" << error.Number() << "'\n";
    }

    std::ostringstream log;

  private:
    // The next answer, which must be to a question that ends as this one does.
    std::string AnswerTo(const std::string& question) {
        const days::Row row = next_ < answers_.size() ? answers_[next_] : days::Row();
        const std::string expected = days::TextIn(row, "Question");
        if (expected.empty() || !question.ends_with(expected))
            ADD_FAILURE_AT(file_.c_str(), NextLine()) << "asked, but not answered: " << question;
        ++next_;
        return days::TextIn(row, "Answer");
    }

    [[nodiscard]] int NextLine() const { return static_cast<int>(next_) + 2; }

    fs::path file_;
    std::vector<days::Row> answers_ = days::ReadTable(file_).rows;
    std::size_t next_ = 0;
};

class StartsEverything : public platform::ProcessStarter {
  public:
    bool Start(std::string_view /*commandLine*/) override { return true; }
};

// Runs every waiting data set.
void RunDay(const fs::path& folder, platform::Operator& bookkeeper) {
    support::FixedClock clock;
    StartsEverything starter;
    platform::ProfileFiles profileFiles;
    platform::database::SqliteEngine engine;
    localcompany::LocalConnector connector(engine, folder.string());
    app::StartUp server(folder.string(),
                        {bookkeeper, clock, starter, profileFiles, engine, connector});
    try {
        EXPECT_EQ(server.Main(), app::AfterStartUp::Run);
        for (ui::ListEntry& entry : server.Window().ListDayEnd)
            entry.isSelected = true;
        server.Driver().StartDayEnd();
    } catch (const platform::RuntimeError& error) {
        bookkeeper.ReportFatal(error);
    }
}

// By name: the import files and their working copies, and the names of all files but settings and
// databases.
std::map<std::string, std::string> FilesIn(const fs::path& folder) {
    std::map<std::string, std::string> files;
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        const std::string kind = platform::Upper(entry.path().extension().string());
        if (kind == ".TXT" || kind == ".EDI" || kind == ".TMP")
            files[name] = days::InReadingForm(days::ReadBytes(entry.path()));
        if (entry.is_regular_file() && kind != ".INI" && kind != ".COMPANY")
            names.insert(name + "\n");
    }
    for (const std::string& name : names)
        files["files.txt"] += name;
    return files;
}

// One more, empty, where the last line has its end. Of a table the blanks around cells do not
// count.
std::vector<std::string> LinesOf(std::string text, bool isTable) {
    if (isTable) text = std::regex_replace(text, std::regex(" *([|\n]) *"), "$1");
    std::vector<std::string> lines;
    std::istringstream rest(text + "\n");
    for (std::string line; std::getline(rest, line);)
        lines.push_back(line);
    return lines;
}

void ExpectSame(const fs::path& file, const std::string& found) {
    const bool isTable = file.filename() == "company.txt";
    const std::string text = fs::exists(file) ? days::ReadBytes(file) : "(no such file)";
    std::vector<std::string> expected = LinesOf(text, isTable);
    std::vector<std::string> lines = LinesOf(found, isTable);
    const std::size_t count = std::max(expected.size(), lines.size());
    expected.resize(count, "(no such line)");
    lines.resize(count, "(no such line)");
    const auto place = std::ranges::mismatch(expected, lines);
    if (place.in1 == expected.end()) return;
    ADD_FAILURE_AT(file.c_str(), static_cast<int>(place.in1 - expected.begin()) + 1)
        << "expected: " << *place.in1 << "\n   found: " << *place.in2;
}

// Each text must be a file of the folder, and each of its files a text.
void ExpectFiles(const fs::path& folder, std::map<std::string, std::string> found) {
    for (const auto& entry : fs::directory_iterator(folder))
        found.try_emplace(entry.path().filename(), "(no such file)");
    for (const auto& [name, text] : found)
        ExpectSame(folder / name, text);
}

std::vector<std::string> DayNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kDays)) {
        if (entry.is_directory() && entry.path().filename() != "usual")
            names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace

class Day : public testing::TestWithParam<std::string> {};

TEST_P(Day, LeavesWhatIsExpected) {
    const fs::path day = kDays / GetParam();
    const support::TempFolder shop;
    days::LayOutShop(kDays, GetParam(), shop.Path());
    const std::string companyBefore = days::CompanyText(shop.Path());
    Bookkeeper bookkeeper(day / "answers.txt");

    RunDay(shop.Path(), bookkeeper);

    bookkeeper.ExpectNoAnswersLeft();
    std::map<std::string, std::string> found = FilesIn(shop.Path());
    found["log.txt"] = bookkeeper.log.str() + days::StoreText(shop.Path());
    if (days::CompanyText(shop.Path()) != companyBefore || fs::exists(day / "expected/company.txt"))
        found["company.txt"] = days::CompanyText(shop.Path(), companyBefore);
    ExpectFiles(day / "expected", found);
}

INSTANTIATE_TEST_SUITE_P(Days, Day, testing::ValuesIn(DayNames()), [](const auto& test) {
    std::string name = test.param;
    std::ranges::replace(name, '-', '_');
    return name;
});
